//Maya ASCII 2019 scene
//Name: seed.ma
//Codeset: UTF-8
requires maya "2019";
requires "mtoa" "3.1.2" -nodeType "aiOptions" -dataType "aiAOVs";
currentUnit -l centimeter -a degree -t film;
fileInfo "application" "maya";
fileInfo "osv" "Microsoft Windows 10\n";
createNode transform -s -n "persp";
	rename -uid "12345678-ABCD";
	setAttr ".v" no;
createNode transform -n "hero:arm" -p "|persp";
createNode joint -n "elbow" -p "hero:arm";
	setAttr ".t" -type "double3" 1e-016 2 3 ;
select -ne :time1;
	setAttr ".o" 1;
connectAttr "hero:arm.t" "elbow.t" -na;
parent -s -nc -r -add "|persp" "elbow";
createNode script -n "sceneConfigurationScriptNode";
	setAttr ".b" -type "string" ("print \"a;b\";"
		+ "// not a comment");
// End of seed.ma
