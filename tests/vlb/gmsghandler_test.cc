#include <cstdlib>
#include <thread>

#include <gtest/gtest.h>

#include "support/temp_folder.h"
#include "support/test_outside.h"
#include "vlb/gexception.h"
#include "vlb/gfilesystem.h"
#include "vlb/gmsghandler.h"
#include "vlb/messages.h"

namespace {

class Messages : public testing::Test {
protected:
  // What the system does before a run.
  static void begin_run(gMsgHandler & log) {
    log.reset_suppressed();
    log.reset_counts();
    log.minlvl_disp(Msg::all);
    log.minlvl_file(Msg::all);
    log.err_max = 0;
  }

  TestOutside outside;
  TempFolder folder;
  gMsgHandler log;
};

TEST_F(Messages, every_severity_has_its_line_form) {
  log(Msg::redefining_option, "x");
  log(Msg::analyzing_script);
  log(Msg::missing_identifier, "", "a.h:3");
  log(Msg::treating_as_unnamed);
  log(Msg::undefined_citation, "c", "a.h:4");
  log(Msg::wrong_param_type, "p");
  log(Msg::expected_type, "int");
  EXPECT_EQ(outside.report_text(), "INFO: Redefining option: x\n"
                                   "\nSTATUS: Analyzing script file...\n"
                                   "WARNING 420: Missing identifier of text unit. (a.h:3)\n"
                                   "    Treating text unit as unnamed.\n"
                                   "DOC ERROR 310: Undefined source citation: c (a.h:4)\n"
                                   "ERROR 133: Wrong parameter type: p\n"
                                   "    Expected type: int\n");
  EXPECT_THROW(log(gMessage(0, Msg::all, "none")), gExcInternalErr);
  EXPECT_THROW(log(gMessage(0, static_cast<Msg::type>(8), "none")), gExcInternalErr);
}

TEST_F(Messages, display_and_file_have_levels_of_their_own_and_free_text_passes_both) {
  ASSERT_TRUE(log.open_logfile(folder.path("ana.log")));
  log.minlvl_disp(Msg::error);
  log.minlvl_file(Msg::err_hint);
  log(Msg::empty_curclass);
  log(Msg::empty_subentry, "d");
  log() << "one " << 1000000 << std::endl << "two\n\nthree";
  log(Msg::no_citation_open);
  log(Msg::ignoring_command);
  log(Msg::treating_as_unnamed);
  log(Msg::status) << "dropped" << std::endl;
  log(Msg::doc_error) << "file only" << std::endl;
  log() << "last";
  EXPECT_TRUE(log.close_logfile());
  EXPECT_EQ(outside.report_text(), "ERROR 110: No source citation open\n");
  EXPECT_EQ(outside.log_lines,
            (std::vector<std::string>{"one 1000000", "two", "", "three", "last"}));
  EXPECT_EQ(folder.read("ana.log"),
            "DOC ERROR 330: Subentry is empty: d\none 1000000\ntwo\n\nthree\n"
            "ERROR 110: No source citation open\n    Ignoring command.\nfile only\nlast\n");
  EXPECT_EQ(log.errors(), 2) << "what isn't shown counts all the same";
  EXPECT_EQ(log.warnings(), 1);
}

TEST_F(Messages, a_report_is_one_line_whatever_its_argument_holds) {
  log(Msg::invalid_param, std::string("a\nb\0c\t\x1b[2J\r\x7f\xc2\xb4\\n", 16), "a\n.h:1");
  EXPECT_EQ(outside.report_text(),
            "ERROR 134: Invalid parameter: a\\nb\\0c\t\\x1b[2J\\x0d\\x7f\xc2\xb4\\n (a\\n.h:1)\n");
}

TEST_F(Messages, a_suppressed_report_takes_its_hints_along_and_isnt_counted) {
  log.suppress({420, 111});
  log(Msg::missing_identifier);
  log(Msg::treating_as_unnamed);
  log(Msg::unparsed_identifier);
  log(Msg::treating_as_unnamed);
  log(Msg::citation_unreadable, "c");
  log(Msg::ignoring_command);
  log(Msg::ignoring_definition);
  log() << "free text" << std::endl;
  log(Msg::next_file);
  EXPECT_EQ(outside.reports.size(), 3u) << "a hint behind free text isn't one of theirs";
  EXPECT_TRUE(log.errors() == 0 && log.warnings() == 1 && log.worst() == Msg::warning);
  begin_run(log);
  log(Msg::ignoring_command);
  log(Msg::citation_unreadable, "c");
  EXPECT_EQ(outside.reports.size(), 5u) << "the next run reports again";
}

TEST_F(Messages, the_error_that_reaches_the_limit_is_written_and_ends_the_stage) {
  log.err_max = 2;
  log(Msg::empty_curclass);
  log(Msg::no_citation_open);
  EXPECT_FALSE(log.limit_reached());
  try {
    log(Msg::undefined_citation, "c");
    FAIL();
  } catch (gExcFatalErr const & failure) {
    EXPECT_STREQ(failure.what(), "FATAL ERROR: Maximum error count reached: 2");
  }
  EXPECT_EQ(outside.reports.size(), 3u);
  EXPECT_NO_THROW(log(Msg::aborting)) << "handlers must be able to report";
  EXPECT_TRUE(log.limit_reached()) << "or a guard would go on with the next file";
  EXPECT_THROW(log(Msg::code_failed), gExcFatalErr) << "or the run would go on";
  begin_run(log);
  EXPECT_FALSE(log.limit_reached());
  for (int i = 0; i < 1000; ++i)
    log(Msg::no_citation_open);
  EXPECT_EQ(log.errors(), 1000) << "no limit by default";
}

TEST_F(Messages, what_ends_a_file_is_counted_and_tells_the_place_once) {
  log.take({Msg::parser_stack, "", {"a.h", 7}});
  log(Msg::unreadable, "b.h", "b.h");
  log(Msg::illegal_headline_level, "0");
  log.take(gExcInternalErr("ASSERT_ failed: ", "x > 0", "y.cc(3)").report());
  EXPECT_EQ(outside.report_text(), "FATAL ERROR: Stack overflow in the parser (a.h:7)\n"
                                   "FATAL ERROR: Cannot read from file: b.h\n"
                                   "ERROR 193: Illegal headline level (1 <= n <= 6) 0\n"
                                   " INTERNAL ERROR: ASSERT_ failed: x > 0 (y.cc(3))\n");
  EXPECT_TRUE(log.errors() == 4 && log.worst() == Msg::error);
}

TEST_F(Messages, a_list_counts_and_ends_a_run_only_when_it_is_handed_on) {
  gReportList list(gRunStage::code), copy;
  list(Msg::no_citation_open, "", {"a.h", 1});
  list(Msg::ignoring_command);
  list(Msg::empty_curclass);
  EXPECT_TRUE(outside.reports.empty() && log.errors() == 0);
  log.copy_to(&copy);
  log.suppress({451});
  list.hand_on(log);
  EXPECT_EQ(outside.report_text(),
            "ERROR 110: No source citation open (a.h:1)\n    Ignoring command.\n");
  EXPECT_TRUE(list.empty() && log.errors() == 1);
  ASSERT_EQ(copy.reports().size(), 2u) << "what is suppressed isn't copied";
  EXPECT_EQ(copy.reports()[0].stage, gRunStage::code);
  EXPECT_EQ(copy.reports()[0].place.line, 1);
  log.err_max = 2;
  list(Msg::code_failed);
  EXPECT_THROW(list.hand_on(log), gExcFatalErr);
  log.copy_to(nullptr);
}

TEST_F(Messages, a_list_stays_bounded) {
  gReportList list, taker;
  for (std::size_t i = 0; i < gReportList::capacity + 5; ++i)
    list(Msg::no_citation_open, "", {"a.h", 1});
  list.hand_on(log);
  EXPECT_EQ(log.errors(), static_cast<int>(gReportList::capacity) + 1);
  EXPECT_EQ(outside.reports.back(), "ERROR 24: Further reports of this file are left out: 5 (a.h)");
  gReportList through(gRunStage::none, &taker);
  for (std::size_t i = 0; i < gReportList::capacity + 5; ++i)
    through(Msg::no_citation_open);
  EXPECT_EQ(through.reports().size(), 5u);
  EXPECT_EQ(taker.reports().size(), gReportList::capacity);
}

TEST_F(Messages, reports_of_other_threads_are_whole_lines_that_no_run_counts) {
  begin_run(log);
  log.err_max = 150;
  log.suppress({451});
  auto const report = [this](char const * text) {
    for (int i = 0; i < 100; ++i) {
      log() << text << ' ' << i << std::endl;
      log(Msg::no_citation_open, text);
      log(Msg::empty_curclass);
      log(Msg::ignoring_command);
    }
  };
  std::thread other(report, "other");
  report("run");
  other.join();
  EXPECT_EQ(log.errors(), 100);
  std::thread([this] {
    log.continue_run();
    log(Msg::no_citation_open);
  }).join();
  EXPECT_EQ(log.errors(), 101) << "a run that is handed to a worker";
  EXPECT_EQ(outside.reports.size(), 201u);
  EXPECT_EQ(outside.log_lines.size(), 200u);
}

TEST_F(Messages, a_log_that_cannot_be_made_or_written_is_noticed) {
  EXPECT_FALSE(log.open_logfile(folder.path("no/ana.log")));
  log(Msg::no_citation_open);
  EXPECT_TRUE(log.close_logfile()) << "nothing was to be written";
  if (!std::filesystem::exists("/dev/full"))
    GTEST_SKIP();
  ASSERT_TRUE(log.open_logfile("/dev/full"));
  log(Msg::no_citation_open);
  EXPECT_FALSE(log.close_logfile());
  ASSERT_TRUE(log.open_logfile(folder.path("ana.log")));
  EXPECT_TRUE(log.close_logfile()) << "an earlier failure doesn't stick";
}

std::string manual_row(gMessage const & message) {
  constexpr char const * words[] = {"",        "INFO",  "STATUS",    "WARNING",
                                    "WARNING", "ERROR", "DOC ERROR", "ERROR"};
  gString text(message.text);
  text.wsp_rmleft().wsp_rmright();
  return "\n| " + std::to_string(message.number) + " | " + words[message.severity] + " | " + text +
         " | " + std::string(message.advice) + " |\n";
}

TEST_F(Messages, the_manual_has_the_row_of_every_numbered_report) {
  std::string manual;
  ASSERT_TRUE(gFileSystem::read_file(VELLUMAR_SOURCE_DIR "/doc/messages.md", manual));
  std::size_t at = 0;
  for (gMessage const * message : Msg::catalogue()) {
    if (message->number == 0 || message == &Msg::empty_filter) // which nothing reports
      continue;
    std::size_t const row = manual.find(manual_row(*message), at);
    ASSERT_NE(row, manual.npos) << "missing, or not in order:" << manual_row(*message);
    at = row;
  }
}

} // namespace
