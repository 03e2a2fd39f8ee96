// A dialog: one or more pages, its buttons, and the moments at which rules run.
#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "app/shell/dialogs/page.h"
#include "store/csignal.h"

// The window that shows a dialog calls open() once, then the operations of the user's events. Each
// of them may show boxes, choosers and other dialogs before it returns; events that come meanwhile
// are left alone. Behind each event, and when a dialog changes by itself, `on_update` is called:
// the window then brings its controls in line with the fields, shows page(), takes the focus that
// the dialog asks for, and goes when the dialog isn't open any more.
class gDialog {
public:
  enum class Apply { no, yes };
  // A place in the dialog by the number of the page and the id of a field.
  struct Focus {
    int page;
    std::string field;
  };
  // Where the focus went when it left a field.
  struct Target {
    enum class Kind { field, ok, cancel, apply, elsewhere };
    Kind kind = Kind::elsewhere;
    std::string field = {}; // its id, on the same page
  };

  explicit gDialog(std::string title, Apply apply = Apply::no);
  virtual ~gDialog();
  gDialog(gDialog const &) = delete;
  gDialog & operator=(gDialog const &) = delete;

  std::string const & title() const { return title_; }
  std::vector<std::unique_ptr<gPage>> const & pages() const { return pages_; }
  bool has_apply() const { return apply_ == Apply::yes; }
  // The label of the button that takes the changes; some dialogs have nothing to cancel.
  virtual char const * ok_label() const { return "OK"; }
  virtual bool has_cancel() const { return true; }

  // For a dialog that stays open beside other work: it closes when another project takes the place
  // of this one, and changes that aren't stored are asked for before. Called before open().
  void follow_project();
  // Fills all pages. Pages are added before.
  void open();
  bool is_open() const { return open_; }
  // True if the dialog was closed by OK.
  bool accepted() const { return accepted_; }
  // True if something differs from what was read; enables Apply.
  bool changed() const { return changed_; }

  int page() const { return page_; }
  // The page that the user goes to. A number that names no page is the first one.
  void go_to(int page);
  // Asks for the focus of a field, on whatever page it is.
  void focus(gPage const & page, std::string const & field);
  // The focus asked for, once.
  std::optional<Focus> take_focus();

  // The events. Each writes the field first where it has something to write.
  void changed(gPage & page, gField & field);
  void left(gPage & page, gField & field, Target const & target);
  void pressed(gPage & page, gField & button);
  void activated(gPage & page, gField & list, int column);
  void key(gPage & page, gField & list, gListKey key);
  void ok();
  void apply();
  void cancel(); // also for the Escape key and for closing the window

  std::function<void()> on_update;
  cDeleteSignal const & delete_signal() const { return gone_; }

protected:
  void add(std::unique_ptr<gPage> page);
  template <class P, class... A> P & add_page(A &&... arguments) {
    auto page = std::make_unique<P>(std::forward<A>(arguments)...);
    P & added = *page;
    add(std::move(page));
    return added;
  }
  void set_title(std::string const & title) { title_ = title; }
  // Behind the stores of all pages; `written` if one of them changed something. The base marks the
  // project as modified then.
  virtual void stored(bool written);
  // Whether OK may go on when all pages have passed; the last questions of a dialog.
  virtual bool confirm(bool /*apply*/) { return true; }
  void update();

private:
  friend class gPage;
  class Event;
  struct Follower;
  bool check_pages(bool apply);
  bool store_pages(bool apply);
  void close(bool accepted);

  std::string title_;
  Apply apply_;
  std::vector<std::unique_ptr<gPage>> pages_;
  std::optional<Focus> focus_;
  int page_ = 0;
  bool open_ = false, accepted_ = false, changed_ = false;
  bool busy_ = false;    // an event is being worked on, perhaps behind a box
  bool closing_ = false; // the focus went to Cancel
  std::unique_ptr<Follower> follower_;
  cDeleteSignal gone_;
};
