//Maya ASCII 2019 scene
//Codeset: 932
createNode joint -n ("a" b "ä";
