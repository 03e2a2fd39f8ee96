// What a scanner makes of the bytes of a file, and what it writes.
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "support/test_outside.h"
#include "vlb/gexception.h"
#include "vlb/gfilesystem.h"
#include "vlb/parse/test_scan.h"

namespace {

class Input : public ::testing::Test {
protected:
  TestOutside outside;
  std::string const path = ::testing::TempDir() + "parse_input.txt";

  ~Input() override { std::remove(path.c_str()); }
  gSrcFile file(std::string const & bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
    return gSrcFile(path, "user.txt", 1);
  }
};

// Low byte first.
std::string bytes_of(std::u16string const & text) {
  std::string bytes;
  for (char16_t unit : text)
    bytes += {static_cast<char>(unit & 0xFF), static_cast<char>(unit >> 8)};
  return bytes;
}

std::string swapped(std::string bytes) {
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2)
    std::swap(bytes[i], bytes[i + 1]);
  return bytes;
}

TEST_F(Input, line_ends_marks_and_utf16_are_read_away) {
  std::pair<std::string, std::string> const rows[] = {
      {"a\r\nb\r\n", "a\nb\n"},
      {"a\r\r\n\n\r", "a\n\n\n\n"},
      {"\xEF\xBB\xBF\xEF\xBB\xBF\r\n", "\xEF\xBB\xBF\n"},
      {std::string(200000, 'x') + "\r\n", std::string(200000, 'x') + "\n"},
      {bytes_of(u"\uFEFFa\u00E9\r\u20AC\U0001D11E"), "a\u00E9\n\u20AC\U0001D11E"},
      {swapped(bytes_of(u"\uFEFFa\r\n")), "a\n"},
      {bytes_of(u"ab"), "ab"},
      {swapped(bytes_of(u"ab")), "ab"},
      {bytes_of(std::u16string(u"\uFEFFa") + char16_t(0xD834) + u"b" + char16_t(0xDD1E)) + "!",
       "a\uFFFDb\uFFFD\uFFFD"},
      {"\xFF\xFE", ""},
  };
  TestScan scan({"."});
  for (auto const & [bytes, text] : rows) {
    std::string read;
    scan.open_infile(file(bytes));
    for (int c = scan.input(); c >= 0; c = scan.input())
      read += static_cast<char>(c);
    EXPECT_EQ(read, text);
    EXPECT_EQ(scan.close_infile(), 0);
  }
}

TEST_F(Input, what_cannot_be_read_is_a_fatal_error) {
  TestScan scan({"."});
  ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
  for (std::string const & wrong :
       {path + ".none", ::testing::TempDir(), std::string("/dev/zero"), path})
    EXPECT_EQ(fault_of([&] { scan.open_infile(gSrcFile(wrong, "", 0)); }),
              "FATAL ERROR: Cannot read from file: " + wrong);
}

TEST_F(Input, unmatched_characters_are_reported_and_skipped_but_nul_once_a_file) {
  TestScan scan({"[^\\n?]+", "x.y"});
  gSrcFile const source = file(std::string("ab\0\0c\n?\xB4\0x\0y", 13));
  for (int i = 0; i < 2; ++i) {
    scan.reset();
    scan.open_infile(source);
    scan.notes.clear();
    scan.scan();
    EXPECT_EQ(scan.notes, "0<ab>0<c>0<\xB4>0<x>0<y>");
  }
  std::string const once = "ERROR 10: Lexical error with character: '\\0' (0x00) (user.txt:1)\n"
                           "ERROR 10: Lexical error with character: '\\n' (0x0a) (user.txt:1)\n"
                           "ERROR 10: Lexical error with character: '?' (0x3f) (user.txt:2)\n";
  EXPECT_EQ(outside.report_text(), once + once);
}

TEST_F(Input, quote_marks_of_code_text_depend_on_the_encoding) {
  std::pair<std::string, std::string> const rows[] = {
      // Plain bytes: either byte is the mark.
      {"a\xB4 \xEF", "1<a>0<\xB4>1< >0<\xEF>"},
      // UTF-8: the acute alone; the bytes of 'ô' (C3 B4), of U+FF34 and of U+1D134 aren't.
      {"\xC3\xB4\xC2\xB4\xEF\xBC\xB4", "1<\xC3\xF8>0<\xB4>1<\xF9\xBC\xF8>"},
      {"\xF0\x9D\x84\xB4", "1<\xF0\x9D\x84\xF8>"},
      // Broken in one place: plain bytes again. Overlong, surrogate, beyond the end, cut off.
      {"\xC2\xB4\xC0\xB4", "1<\xC2>0<\xB4>1<\xC0>0<\xB4>"},
      {"\xC2\xB4\xED\xA0\x80", "1<\xC2>0<\xB4>1<\xED\xA0\x80>"},
      {"\xC2\xB4\xF4\x90\x80\x80", "1<\xC2>0<\xB4>1<\xF4\x90\x80\x80>"},
      {"\xC2\xB4 12345678 \xC3", "1<\xC2>0<\xB4>1< 12345678 \xC3>"},
  };
  TestScan scan({"[\\xB4\\xEF]", "[^\\xB4\\xEF]+"});
  scan.shield_quotes(true);
  for (auto const & [bytes, notes] : rows) {
    std::string values;
    scan.on_match = [&](int) { return values += scan.value(), scan_go_on; };
    EXPECT_EQ(scan.notes_of(bytes), notes);
    EXPECT_EQ(values, bytes);
  }
  TestScan letters({"[a-z]"});
  letters.shield_quotes(true);
  letters.notes_of("a\xC2\xB4");
  EXPECT_EQ(outside.report_text(),
            "ERROR 10: Lexical error with character: '\xC2\xB4' (0xb4) (in.txt:1)\n");
}

TEST_F(Input, output_arrives_whole_and_a_failed_write_shows_at_the_end) {
  TestScan scan({"[a-z]+", "[0-9]"});
  scan.on_match = [&](int rule) {
    return rule == 0 ? scan.echo_text() : scan.ECHO('#'), scan_go_on;
  };
  scan.ECHO("no file is open");
  std::string input, output;
  for (int i = 0; i < 200000; i += 1000) {
    input += std::string(1000, 'a') + "1";
    output += std::string(1000, 'a') + "#";
  }
  scan.open_outfile(gSrcFile(path, "", 0));
  scan.notes_of(input);
  std::string const large(100000, 'z');
  scan.ECHO(large);
  EXPECT_EQ(scan.close_outfile(), 0);
  std::stringstream written;
  written << std::ifstream(path).rdbuf();
  EXPECT_EQ(written.str(), output + large);

  scan.open_outfile(gSrcFile("/dev/full", "", 0));
  scan.ECHO(large);
  EXPECT_NE(scan.close_outfile(), 0);
  EXPECT_THROW(scan.open_outfile(gSrcFile(path + "/x", "", 0)), gExcFatalErr);
}

// 1 MB of memory for all texts together.
TEST_F(Input, a_temporary_file_reads_the_same_in_memory_and_on_the_disk) {
  ::setenv("VELLUMAR_TEMP_MEMORY", "1", 1);
  for (std::size_t size : {0, 3, 70'000, 900'000, 70'000, 1'100'000, 2'500'000, 900'000}) {
    gPathstring const temporary = gFileSystem::get_temp_file_name("~vl");
    std::string text, read;
    gOutputFile out;
    // The second text replaces the first.
    for (char const * begin : {"first", ""}) {
      ASSERT_TRUE(out.open(temporary));
      text = begin;
      out.put(text);
      while (text.size() < size) {
        text += "piece " + std::to_string(text.size()) + "\n";
        out.put(std::string_view(text).substr(text.rfind('p')));
      }
      ASSERT_TRUE(out.close());
    }
    // The old text is there until the new one is complete.
    EXPECT_EQ(std::filesystem::exists(temporary.c_str()), 2 * size > 1 << 20);
    ASSERT_TRUE(gFileSystem::read_file(temporary, read));
    EXPECT_TRUE(read == text);
    gInputText input(8);
    ASSERT_TRUE(input.read(temporary));
    EXPECT_TRUE(std::string_view(input.begin(), input.end()) == text);
    ASSERT_TRUE(gFileSystem::remove(temporary));
  }
  gPathstring const lost = gFileSystem::get_temp_file_name("~vl");
  std::string const large(2'000'000, 'x');
  gOutputFile out;
  ASSERT_TRUE(out.open(lost));
  gFileSystem::remove_temp_files();
  out.put(large);
  EXPECT_FALSE(out.close());
  ::unsetenv("VELLUMAR_TEMP_MEMORY");
}

} // namespace
