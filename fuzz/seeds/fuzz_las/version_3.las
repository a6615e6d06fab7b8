~Version
VERS. 3.0 :
DLM. COMMA :
~Well
NULL. -9 :
~Core_Data | Core_Definition
5.5,brown, hard
~Log_Definition
DEPT.M :
GR.API : {F}
LITH. : {S}
~Log_Data | Log_Definition
1,2,"lime, grey"
2,,3
~Log_Data[2]
1
~P
KB.M 12 :
