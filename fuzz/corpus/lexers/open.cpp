char* s = "open
/* never closed "x"
