// The worker's reports and status wait in the queue until the next idle pass, so everything here
// runs on the window's thread.

#include "app/shell/window/vapp_frame.h"

#include "app/options/settings.h"
#include "app/shell/cmenu_handler.h"
#include "app/shell/facts.h"
#include "app/shell/signals.h"
#include "app/shell/window/help_contexts.h"
#include "app/shell/window/source_link.h"
#include "app/shell/worker.h"
#include "vlb/gfilesystem.h"

gVappFrame::gVappFrame(gFrameView & view, gDesktop & desktop, gPathstring const & help_map)
    : view_(view),
      desktop_(desktop),
      menu_(*this),
      help_(help_map, desktop),
      help_slot_(*this, &gVappFrame::help_finder) {
  sig_onhelpfinder().connect(help_slot_);
}

// Handlers of a run that isn't over wait for it.
gVappFrame::~gVappFrame() {
  erase();
}

void gVappFrame::load_menu() {
  gPathstring beside = Vapp::program_dir();
  gPathstring shipped = Vapp::ini_dir();
  // A damaged file has nothing that could be run.
  if (!CreateMenuFromFile(this, beside.append("vle.mnu").c_str()) || handlers().empty())
    CreateMenuFromFile(this, shipped.append("vle.mnu").c_str());
  menu_.build();
}

bool gVappFrame::first_start() const {
  return !Vapp::project().is_open() && messages_.size() == 0;
}

bool gVappFrame::run(int id) {
  if (id < 0) {
    run_built_in(static_cast<gBuiltIn>(id));
    return true;
  }
  if (id == 0 || closing_ || !DoUpdateCommand(id))
    return false;
  bool const done = DoCommand(id) != 0;
  refresh();
  return done;
}

bool gVappFrame::run(std::string_view name) {
  gMenuItem const * const item = menu_.find(name);
  return item && run(item->id);
}

void gVappFrame::run_built_in(gBuiltIn entry) {
  gMenuItem const * const item = menu_.find(static_cast<int>(entry));
  if (!item)
    return;
  bool const show = !item->checked;
  menu_.check(entry, show && item->checkable);
  switch (entry) {
  case gBuiltIn::exit:
    close();
    return;
  case gBuiltIn::about:
    Vlb::outside().dialog("gAboutDialog");
    return;
  case gBuiltIn::tool_bar:
    view_.show_tool_bar(show);
    break;
  case gBuiltIn::status_bar:
    view_.show_status_bar(show);
    break;
  case gBuiltIn::messages:
    view_.show_messages(show);
    break;
  }
  view_.update_menu();
}

std::string gVappFrame::message_string(int id) {
  CString text;
  if (id > 0 && DoGetMessageString(id, text))
    return text;
  gMenuItem const * const item = menu_.find(id);
  return item ? item->status : "";
}

void gVappFrame::help_on_entry(int id) {
  gMenuItem const * const item = menu_.find(id);
  help_.request(gHelp::Command::context, item ? help_context(item->name) : 0);
}

void gVappFrame::help_on(int context) {
  help_.request(gHelp::Command::context, context);
}

void gVappFrame::help_finder() {
  help_.request(gHelp::Command::index);
}

void gVappFrame::drop_files(std::vector<std::string> const & paths, cPointT2<int> const & place) {
  gWaitCursor const wait;
  for (std::string const & path : paths)
    DoDropFile(path.c_str(), place);
  refresh();
}

bool gVappFrame::open_file(gPathstring const & path) {
  return Shell::open_file(path, desktop_);
}

void gVappFrame::open_message(std::size_t row) {
  if (row < messages_.rows())
    Shell::open_source(messages_.place(row), desktop_);
}

void gVappFrame::take_messages() {
  gMessageQueue::Batch batch = queue_.take();
  if (batch.clear)
    messages_.clear();
  if (batch.clear || !batch.rows.empty() || batch.left_out > 0) {
    messages_.append(std::move(batch.rows));
    messages_.left_out(batch.left_out);
    view_.update_messages(batch.clear);
  }
  if (batch.status)
    progress_.take(*batch.status, gRunProgress::Clock::now());
  if (batch.status || progress_.busy())
    view_.update_progress();
  if (batch.show)
    show_messages(*batch.show);
}

void gVappFrame::show_messages(bool show) {
  menu_.check(gBuiltIn::messages, show);
  view_.show_messages(show);
  view_.update_menu();
}

void gVappFrame::refresh() {
  if (menu_.update())
    view_.update_menu();
}

bool gVappFrame::idle() {
  Shell::collect_worker();
  take_messages();
  refresh();
  if (closing_ && Shell::idle()) {
    closing_ = false;
    leave();
    return false;
  }
  // The end of a run may have begun something else.
  if (closing_)
    Vapp::user_break = true;
  bool const wanted = sig_idle().isconnected();
  sig_idle()();
  return wanted;
}

void gVappFrame::close() {
  if (asking_ || closing_)
    return;
  if (Shell::idle()) {
    leave();
    return;
  }
  asking_ = true;
  bool const stop = Vlb::outside().ask_yes_no("The documentation is still being made.\n\n"
                                              "Stop and close Vellumar?") == gOutside::Answer::yes;
  asking_ = false;
  if (!stop)
    return;
  // It may have ended behind the question.
  Vapp::user_break = !Shell::idle();
  closing_ = true;
}

void gVappFrame::leave() {
  asking_ = true;
  Shell::store_place(view_.place());
  bool const may_go = Vapp::project().ask_to_save(true);
  asking_ = false;
  if (may_go)
    view_.close();
}
