{ Licence: none. }
unit Colors;
interface
type
  { A colour.
    @param none has parameters }
  TColor = class
    Red: Integer; // its red part
    (** Mixes two colours.
        @param Other  the other one
        @returns the mixture *)
    function Mix(Other: TColor): TColor;
  end;
{$IFDEF DEBUG}
/// Writes it out.
procedure Dump(Color: TColor);
implementation
{ Not seen. }
function TColor.Mix(Other: TColor): TColor;
begin
  { of the body }
end;
procedure Dump(Color: TColor);
begin
  WriteLn('the end. of it');
end;
END.
{ behind the end. }
