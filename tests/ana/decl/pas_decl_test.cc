// The reader of Pascal. A case is a line of a file; every case is then read again in other clothes.
#include "decl_text.h"

#include <algorithm>
#include <cstdlib>
#include <map>

#include <gtest/gtest.h>

namespace Decl {

namespace {

std::string with_result(std::string_view text, gFileDeclarations const & file) {
  std::string all;
  for (gDeclaration const & one : file.items) {
    all += (all.empty() ? "" : " | ") + shown(text, file, one, gSyntax::pascal);
    if (!one.result.empty())
      all += " -> " + one_line(text, one.result, gSyntax::pascal);
  }
  for (gSkipped const & one : file.skipped)
    all += (all.empty() ? "" : " | ") + ("skipped " + std::to_string(one.line) + ": " + one.reason);
  for (std::size_t at = 0; at < file.uses.size(); ++at)
    all += (at == 0 ? " | uses " : ", ") + std::string(file.uses[at].of(text));
  return all;
}

std::string read(std::string const & text) {
  return with_result(text, read_pascal(text));
}

std::string name_at(std::string_view text, gFileDeclarations const & file, std::int32_t at) {
  return at < 0 ? "-" : std::string(file.items[static_cast<std::size_t>(at)].name.of(text));
}

std::string places(std::string const & text) {
  constexpr char const * words[] = {"between", "within", "parameters", "body", "values", "outside"};
  gFileDeclarations const file = read_pascal(text);
  std::string all;
  for (gComment const & one : file.comments)
    all += (all.empty() ? "[" : " [") + std::string(one.whole.of(text)) + " " + words[one.place] +
           " " + name_at(text, file, one.scope) + " " + name_at(text, file, one.declaration) + "]";
  for (gInclude const & one : file.includes)
    all += " <" + std::string(one.name.of(text)) + " " + std::to_string(one.context.section) + " " +
           std::to_string(one.context.block) + " " +
           std::to_string(static_cast<int>(one.context.access)) + " " +
           name_at(text, file, one.scope) + ">";
  for (gDeclaration const & one : file.items)
    for (std::int32_t at = one.condition; at >= 0;) {
      gCondition const & condition = file.conditions[static_cast<std::size_t>(at)];
      all += " " + std::string(one.name.of(text)) + " if " + condition.text;
      at = condition.outer;
    }
  return all;
}

TEST(PascalReader, OneLineCases) {
  check_lines("pascal.cases", read);
}

TEST(PascalReader, PlacesOfCommentsAndIncludes) {
  check_lines("pascal_places.cases", places);
}

// The text with `between` at each blank that no string, comment or directive holds.
std::string at_blanks(std::string const & text, std::string const & between) {
  std::string result;
  bool quoted = false;
  int braces = 0;
  for (char const c : text) {
    quoted = quoted != (c == '\'' && braces == 0);
    braces += quoted ? 0 : c == '{' ? 1 : c == '}' ? -1 : 0;
    result += c;
    if (c == ' ' && !quoted && braces == 0)
      result += between;
  }
  return result;
}

std::string lower(std::string text) {
  std::ranges::transform(text, text.begin(), [](unsigned char c) {
    return c < 0x80 ? static_cast<char>(std::tolower(c)) : static_cast<char>(c);
  });
  return text;
}

TEST(PascalReader, ClothesDoNotMatter) {
  for (std::string const & source : case_sources("pascal.cases")) {
    if (source.find("'''") != source.npos || source.find("asm") != source.npos ||
        source.find("//") != source.npos || source.find("operator") != source.npos)
      continue;
    std::string const plain = read(source);
    EXPECT_EQ(read(at_blanks(source, "{ x; end } (* ' *) ")), plain);
    EXPECT_EQ(lower(read(at_blanks(source, "{$hints off}\t"))), lower(plain));
    if (source.find(" On") != source.npos)
      continue; // what makes an event is its small "n"
    std::string upper = source;
    std::ranges::transform(upper, upper.begin(), [](unsigned char c) {
      return c < 0x80 ? static_cast<char>(std::toupper(c)) : static_cast<char>(c);
    });
    EXPECT_EQ(lower(read(upper)), lower(plain));
    std::string dos;
    for (char const c : source)
      dos += c == '\n' ? "\r\n" : std::string(1, c);
    EXPECT_EQ(read(dos), plain);
  }
}

// Faults

constexpr char const * sample = R"(unit Sample;

interface

uses
  SysUtils, Classes;

type
  TColour = (clRed, clGreen, clBlue);
  TItem = class;

  { An item }
  TItem = class(TObject)
  private
    FName: string;
    FSize: array[0..3] of Integer;
    procedure SetName(const Value: string);
  protected
    procedure Changed; virtual;
  public
    constructor Create(AOwner: TObject; ASize: Integer = 4);
    destructor Destroy; override;
    function Find(const Name: string; out Index: Integer): Boolean;
    property Name: string read FName write SetName;
  end;

  TPoint = record
    X, Y: Integer;
    case Byte of
      0: (A: Word; B: Word);
      1: (C: Cardinal);
  end;

  TNotify = procedure(Sender: TObject) of object;

const
  Limit = 10;
  Names: array[TColour] of string = ('red', 'green', 'blue');

var
  Count: Integer;
  Default: TPoint;

procedure Register;
function Sum(A, B: Integer): Integer;

implementation

const
  Hidden = 'x';

procedure TItem.SetName(const Value: string);
var
  Old: string;
begin
  Old := FName;
  if Old <> Value then
  begin
    FName := Value;
    Changed;
  end;
end;

procedure TItem.Changed;
begin
  { nothing }
end;

constructor TItem.Create(AOwner: TObject; ASize: Integer);
begin
  inherited Create;
  case ASize of
    1: FSize[0] := 1;
  else
    try
      FSize[1] := (2 + 3) * 4;
    finally
      Changed;
    end;
  end;
end;

destructor TItem.Destroy;
begin
  inherited;
end;

function TItem.Find(const Name: string; out Index: Integer): Boolean;

  procedure Look(At: Integer);
  begin
    Index := At;
  end;

begin
  Look(1);
  Result := True;
end;

procedure Register;
begin
end;

function Sum(A, B: Integer): Integer;
begin
  Result := A + B;
end;

end.
)";

std::map<std::string, int> declared(std::string const & text) {
  std::map<std::string, int> names;
  gFileDeclarations const file = read_pascal(text);
  for (gDeclaration const & one : file.items)
    ++names[std::string(kind_word(one.kind)) + " " + name_at(text, file, one.scope) + "." +
            std::string(one.qualifier.of(text)) + "." + std::string(one.name.of(text))];
  return names;
}

double share_found(std::map<std::string, int> const & whole, std::string const & damaged) {
  std::map<std::string, int> const found = declared(damaged);
  int sum = 0, kept = 0;
  for (auto const & [name, count] : whole) {
    auto const same = found.find(name);
    sum += count;
    kept += same == found.end() ? 0 : std::min(count, same->second);
  }
  return std::min(1.0, static_cast<double>(kept + 1) / sum); // one may be the damaged one itself
}

TEST(PascalReader, FaultCostsItsDeclaration) {
  std::string const text = sample;
  std::map<std::string, int> const whole = declared(text);
  ASSERT_TRUE(read_pascal(text).skipped.empty());
  std::vector<double> shares;
  for (std::string const token :
       {"(", ")", "[", "]", ";", ":", "'", "{", "}", "end", "begin", "record", "case", ","}) {
    for (std::size_t at = text.find(token); at != text.npos; at = text.find(token, at + 1)) {
      std::string missing = text, doubled = text;
      missing.erase(at, token.size());
      doubled.insert(at, token + " ");
      shares.push_back(share_found(whole, missing));
      shares.push_back(share_found(whole, doubled));
      if (std::getenv("VELLUMAR_SHOW") && std::min(*(shares.end() - 2), shares.back()) < 0.95)
        std::cout << token << " in line " << std::count(text.begin(), text.begin() + at, '\n') + 1
                  << ": " << *(shares.end() - 2) << " " << shares.back() << "\n";
    }
  }
  double sum = 0;
  for (double const share : shares)
    sum += share;
  EXPECT_GE(sum / static_cast<double>(shares.size()), 0.95);
  std::ranges::nth_element(shares, shares.begin() + static_cast<std::ptrdiff_t>(shares.size() / 2));
  EXPECT_EQ(shares[shares.size() / 2], 1.0);
}

// Each of these would take minutes if anything were looked at twice for each of its parts.
TEST(PascalReader, WorstInputsAreLinear) {
  auto const repeated = [](std::string const & part, std::size_t count) {
    std::string text;
    for (std::size_t at = 0; at < count; ++at)
      text += part;
    return text;
  };
  for (char const * part : {"(", "[(", "begin ", "{", "(*", "{$ifdef a} ", "{$ifdef a}{$else}",
                            "procedure a", "a<", "type a=class ", "a,", "'''\n", "case a of ",
                            "procedure a;", "a = record ", "uses a ", "property a[", "end;", ")"}) {
    std::string const text = "type " + repeated(part, 50'000);
    EXPECT_LE(read_pascal(text).items.size(), text.size()) << part;
  }
  EXPECT_EQ(read_pascal("type a=" + repeated("record b:", 60'000) + "c" + repeated(" end", 60'000))
                .items.size(),
            60'001u);
}

} // namespace

} // namespace Decl
