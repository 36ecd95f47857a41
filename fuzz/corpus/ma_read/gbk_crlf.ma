//Maya ASCII 2019 scene
//Name: seed.ma
//Codeset: 936
fileInfo "t" "жпнд\n";
createNode transform -n "n";
