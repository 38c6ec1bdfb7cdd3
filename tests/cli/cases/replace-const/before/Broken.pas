unit Broken;

interface

const
  Lost = 'lost';
  Cut = 'no end

implementation

end.
