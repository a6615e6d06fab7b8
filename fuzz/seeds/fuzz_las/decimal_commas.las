~V
WRAP. NO :
~W
NULL. -999,25 :
~C
D.:
A.:
B.:
~A
100,5 1,5 (null)
101 +.5e3 -1.#IND
