x := 'open
y := 'a'; { never closed 'x'
