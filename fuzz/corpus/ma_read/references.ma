//Maya ASCII 2019 scene
//Name: seed.ma
//Codeset: 1252
file -rdi 1 -ns "a" -rfn "aRN" "ref.ma";
file -rdi 2 -ns "in" -rfn "a:inRN" "ref.ma";
file -rdi 1 -ns ":" -rfn "bRN" -dr 1 "nested.ma";
file -r -ns "a" -dr 1 -rfn "aRN" -op "v=0;" -typ "mayaAscii" "ref.ma";
file -r -ns ":" -rfn "bRN" "$HOME/nested.ma";
file -r -rpr "pre" -rfn "cRN" "self.ma";
file -r -ns "self" -rfn "selfRN" "self.ma";
createNode reference -n "aRN";
	lockNode -l 1 ;
namespace -add "n1";
namespace -set "n1";
createNode transform -n "inside";
namespace -set ":";
