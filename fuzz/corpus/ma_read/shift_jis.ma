//Maya ASCII 2019 scene
//Name: seed.ma
//Codeset: 932
createNode transform -n "ƒ\ƒ\";
fileInfo "note" "•\Ž¦";
createNode transform -n "after";
