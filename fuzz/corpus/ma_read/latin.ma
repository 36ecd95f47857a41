//Maya ASCII 2019 scene
//Name: seed.ma
//Codeset: 1252
createNode transform -n "café";
fileInfo "k" "é\t\\";
