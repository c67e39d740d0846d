~Version
 VERS. 2.0 : CWLS
 WRAP. YES : wrapped
~Well
 STRT.M 1000 : start
 NULL. -999.25 : null
 TIME. 10:30 : time
~Curve
 DEPT.M : depth
 GR.GAPI : gamma
 RT.OHMM : res
~Parameter
 BHT.DEGC 35.5 : bottom hole temperature
~A
1000
45.5 -999.25
1000.5
47 2.25
