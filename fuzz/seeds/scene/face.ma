//Maya ASCII 2019 scene
//Name: face.ma
//Codeset: UTF-8
requires maya "2019";
currentUnit -l centimeter -a degree -t film;
fileInfo "application" "maya";
createNode transform -s -n "persp";
	setAttr ".v" no;
	setAttr ".t" -type "double3" 28 21 28 ;
createNode camera -s -n "perspShape" -p "persp";
	setAttr -k off ".v" no;
createNode joint -n "head";
	addAttr -ci true -sn "liw" -ln "lockInfluenceWeights" -min 0 -max 1 -at "bool";
	setAttr ".t" -type "double3" 0 10 0 ;
	setAttr ".ro" 2;
	setAttr ".jo" -type "double3" 10 -5 3.5 ;
	setAttr ".ssc" no;
createNode joint -n "jaw" -p "head";
	setAttr -l on ".tx";
	setAttr ".s" -type "double3" 1 1.1 1 ;
	setAttr ".radi" 0.5;
createNode animCurveTA -n "jaw_rotateX";
	setAttr ".tan" 18;
	setAttr -s 3 ".ktv[0:2]"  0 0 10 12.5 20 -3;
	setAttr -s 3 ".kit[0:2]"  3 18 1;
createNode unitConversion -n "unitConversion1";
	setAttr ".cf" 0.017453292519943295;
connectAttr "jaw_rotateX.o" "jaw.rx";
connectAttr "head.s" "jaw.is";
// End of face.ma
