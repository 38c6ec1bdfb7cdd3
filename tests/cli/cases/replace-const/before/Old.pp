unit Old;

interface

const
  Saying = 'old is gold';

implementation

end.
