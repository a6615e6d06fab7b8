~V
 VERS. 2.0 : v
 WRAP. NO : w
~A
1 2
