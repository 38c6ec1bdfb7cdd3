unit Fruitnames;

interface

const
  Apple = 'Apple';
  Pear = 'Pear';
  Season: array[1..2] of string = ('Spring', 'Autumn');

implementation

end.
