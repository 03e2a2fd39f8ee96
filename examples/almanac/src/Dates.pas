{ @unit
  Days as numbers: the number 0 is the first of March of the year 0, so that
  the leap day is the last day of a year. All else is division.

  @comment Valid for the Gregorian calendar, also @em{before} it was in use.@endp
  @crefll<introduction> }
unit Dates;

{$H+}

interface

const
  (* @var Days of the 400 years after which the calendar repeats itself. *)
  DaysPerCycle: Integer = 146097;

  /// What stands between the parts of a written date.
  DateSeparator = '-';

type
  /// Counts days. Differences of two numbers are days, too.
  TDayNumber = Integer;

  { @type In the order of ISO 8601, in which weeks begin on Mondays. }
  TWeekday = (Monday, Tuesday, Wednesday, Thursday, Friday, Saturday, Sunday);

  (** Days on which nobody works.
      @comment See ´TCalendar.IsFree()´. *)
  TWeekdays = set of TWeekday;

  { @type The day of a month. }
  TMonthDay = 1..31;

  (**************************************************************
   * @type A date as people write it. { The months count from 1, *
   * as they do on paper. }                                      *
   **************************************************************)
  TDateParts = record
    Year: Integer;
    Month: 1..12;
    Day: TMonthDay;
  end;

  { @type Says whether a day is wanted.
    @comment A method, so that it can ask its object. }
  TDayFilter = function(Day: TDayNumber): Boolean of object;

var
  /// The weekday on which printed weeks begin.
  FirstWeekday: TWeekday;

// @function
//   The number of a date.
//   @enum Months beyond 12 belong to the next year,
//   @enum days beyond the month to the next month.
//
// @parameter Year: all four digits
// @return May be negative.
function DayNumber(Year, Month, Day: Integer): TDayNumber;

{ @function The reverse of @cref<DayNumber>.
  @parameter Parts: gets the date. }
procedure Split(Number: TDayNumber; var Parts: TDateParts);

/// The weekday of a day.
function WeekdayOf(Number: TDayNumber): TWeekday;

{ @function A date as text, such as ´2000-02-29´. }
function DateText(const Parts: TDateParts): string;

implementation

uses SysUtils;

function DayNumber(Year, Month, Day: Integer): TDayNumber;
var
  Years: Integer;
begin
  Years := Year + (Month + 9) div 12 - 1; { counted from March }
  Month := (Month + 9) mod 12;
  Result := Years * 365 + Years div 4 - Years div 100 + Years div 400
    + (Month * 306 + 5) div 10 + Day - 1;
end;

procedure Split(Number: TDayNumber; var Parts: TDateParts);

  function YearOf(Day: TDayNumber): Integer;
  begin
    Result := (Day * 400 + 591) div DaysPerCycle; (* too late by one at most *)
    if DayNumber(Result, 3, 1) > Day then
      Dec(Result);
  end;

var
  Year, Month: Integer;
begin
  Year := YearOf(Number);
  Number := Number - DayNumber(Year, 3, 1);
  Month := (Number * 10 + 5) div 306;
  Parts.Day := Number - (Month * 306 + 5) div 10 + 1;
  case Month of
    0..9: Parts.Month := Month + 3;
  else
    Parts.Month := Month - 9;
    Inc(Year);
  end;
  Parts.Year := Year;
end;

function WeekdayOf(Number: TDayNumber): TWeekday;
begin
  Result := TWeekday((Number + 2) mod 7);
end;

function DateText(const Parts: TDateParts): string;
begin
  Result := Format('%.4d{0}%.2d{0}%.2d', [Parts.Year, Parts.Month, Parts.Day]);
  Result := StringReplace(Result, '{0}', DateSeparator, [rfReplaceAll]);
end;

initialization
  FirstWeekday := Monday;
end.
