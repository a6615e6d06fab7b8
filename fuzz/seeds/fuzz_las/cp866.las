~Version Information
 VERS. 2.0 : CWLS LOG ASCII STANDARD - VERSION 2.0
 WRAP. NO : wrap
~Well Information
 STRT.M 100.0 : start
 STOP.M 100.4 : stop
 STEP.M 0.2 : step
 NULL. -999.25 : null
 WELL. Скважина 7 : well
 FLD. Field : field
 EKB.M 12.5 : elevation
~Curve Information
 DEPT.M : depth
 GR.API 45 310 01 00 : gamma
 DT.US/M : sonic
~Parameter
 BHT.DEGC 35.5 : temperature
~Other
 a remark
~A
100.0 50.1 300
100.2 -999.25 310.5
100.4 55 1e2
