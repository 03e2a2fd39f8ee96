{ @unit
  Holidays, and calendars that know them. The dates come from @cref<Dates>. }
unit Holidays;

interface

uses Dates;

const
  { @var A calendar holds no more holidays than this. }
  MaxHolidays = 100;

type
  THoliday = class;

  { @type Tells that two holidays fall on one day. }
  TClashEvent = procedure(First, Second: THoliday) of object;

  { @class
    A day that comes back every year. How it is found is left to the classes
    below:

    @b_table
    @columns<40%,*>
    @row @cell{´TFixedHoliday´} @cell{by its date}
    @row @cell{´TEasterHoliday´} @cell{by its distance from Easter}
    @e_table }
  THoliday = class(TObject)
  private
    FTitle: string;
  protected
    { @method The day in a year.
      @parameter Year: all four digits }
    function Compute(Year: Integer): TDayNumber; virtual; abstract;
  public
    (** Makes a holiday with a title, under which it can be found. *)
    constructor Create(const ATitle: string);
    /// What people call the day.
    property Title: string read FTitle;
  end;

  /// A holiday with the same date in each year.
  TFixedHoliday = class(THoliday)
  private
    FMonth, FDay: Integer;
    function IsStored: Boolean;
  protected
    function Compute(Year: Integer): TDayNumber; override;
  published
    { @property Counts from 1. }
    property Month: Integer read FMonth write FMonth default 1;
    { @property Counts from 1. A day that the month doesn't have falls into the
      next one. }
    property Day: Integer read FDay write FDay stored IsStored;
  end;

  { @class A holiday that moves with Easter, such as Whitsun.
    @comment The computation is due to a mathematician of the 19th century. }
  TEasterHoliday = class(THoliday)
  public
    { @member Days behind Easter Sunday; negative in front of it. }
    Offset: Integer;
  protected
    function Compute(Year: Integer): TDayNumber; override;
  end;

  (* @class
     A set of holidays.

     @b_verbatim
         Calendar := TCalendar.Create;
         Calendar.Add(TFixedHoliday.Create('New Year'));
     @e_verbatim *)
  TCalendar = class
  private
    FCount: Integer;
    FItems: array[0..MaxHolidays - 1] of THoliday;
    FOnClash: TClashEvent;
    function GetItem(Position: Integer): THoliday;
  public
    destructor Destroy; override;
    { @method Enters a holiday, which then belongs to the calendar. }
    procedure Add(Holiday: THoliday); virtual;
    { @method Whether nobody works on a day.
      @return True on holidays and on ´Weekend´. }
    function IsFree(Day: TDayNumber): Boolean;
    { @property How many holidays there are. }
    property Count: Integer read FCount;
    { @property The holidays, in the order in which they came. }
    property Items[Position: Integer]: THoliday read GetItem;
    { @property Runs when a holiday comes that falls on a day that is taken. }
    property OnClash: TClashEvent read FOnClash write FOnClash;
  end;

var
  { @var The days of the week that are free without being holidays. }
  Weekend: TWeekdays;

{ @function Easter Sunday: the first Sunday behind the full moon.
  @cite<full_moon>
  @return A day between March 22 and April 25. }
function EasterOf(Year: Integer): TDayNumber;

implementation

constructor THoliday.Create(const ATitle: string);
begin
  inherited Create;
  FTitle := ATitle;
end;

function TFixedHoliday.IsStored: Boolean;
begin
  Result := FDay <> 1;
end;

function TFixedHoliday.Compute(Year: Integer): TDayNumber;
begin
  Result := DayNumber(Year, FMonth, FDay);
end;

function EasterOf(Year: Integer): TDayNumber;
var
  Moon, Century: Integer;
begin
  Century := Year div 100;
  { @b_cite<full_moon> }
  Moon := (19 * (Year mod 19) + Century - Century div 4
    - (8 * Century + 13) div 25 + 15) mod 30;
  if (Moon = 29) or (Moon = 28) and (Year mod 19 > 10) then
    Dec(Moon);
  { @e_cite }
  Result := DayNumber(Year, 3, 22 + Moon);
  while WeekdayOf(Result) <> Sunday do
    Inc(Result);
end;

function TEasterHoliday.Compute(Year: Integer): TDayNumber;
begin
  Result := EasterOf(Year) + Offset;
end;

function TCalendar.GetItem(Position: Integer): THoliday;
begin
  Result := FItems[Position];
end;

destructor TCalendar.Destroy;
begin
  while FCount > 0 do begin
    Dec(FCount);
    FItems[FCount].Free;
  end;
  inherited Destroy;
end;

procedure TCalendar.Add(Holiday: THoliday);
begin
  FItems[FCount] := Holiday;
  Inc(FCount);
end;

function TCalendar.IsFree(Day: TDayNumber): Boolean;
var
  Parts: TDateParts;
  I: Integer;
begin
  Split(Day, Parts);
  Result := WeekdayOf(Day) in Weekend;
  for I := 0 to FCount - 1 do
    if FItems[I].Compute(Parts.Year) = Day then
      Result := True;
end;

begin
  Weekend := [Saturday, Sunday];
end.
