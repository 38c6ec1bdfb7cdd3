; the file's
[Options]
Tool=x
Delimiter = "|" 
Version= 1

; names
[Language names - for internal use only!]
; first
1 = English
2=GERMAN 	

; of F
[P/F]
Note=kept 
	languages=1, 2

; of captions
  ; too
[P/F/Captions]
; first
  a=1|2 

b=3|4	
; end

; not of captions
[Unknown]
x=y 
; behind
; of no form
[P/X/Captions]
a=1|2 
b
