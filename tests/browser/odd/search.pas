unit Heavens;
interface
type
  TPhase = (phNew, phGibbous);
  TMoon = class
    function Rise(const Place: string; Hour: Integer): Boolean;
  end;
implementation
end.
