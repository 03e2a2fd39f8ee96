// The base of all commands, and the factories of all of them. They stand together because a linker
// drops an object file of a library that nobody needs: whoever uses a command by its name needs
// this one.

#include "app/shell/cmenu_handler.h"

#include "app/shell/option_handlers.h"
#include "app/shell/out_handlers.h"
#include "app/shell/project_handlers.h"
#include "app/shell/quick_handlers.h"
#include "app/shell/run_handlers.h"
#include "store/cfactory.h"

namespace {

template <class D> struct Entry : cFactoryEntry<cMenuHandlerBase, D> {
  explicit Entry(char const * name)
      : cFactoryEntry<cMenuHandlerBase, D>(name, "unkown menuentry") {}
};

Entry<gVlpNew> const vlp_new("gVlpNew");
Entry<gVlpQuick> const vlp_quick("gVlpQuick");
Entry<gVlpOpen> const vlp_open("gVlpOpen");
Entry<gVlpSave> const vlp_save("gVlpSave");
Entry<gVlpSaveAs> const vlp_save_as("gVlpSaveAs");
Entry<gOpenVLS> const open_vls("gOpenVLS");
Entry<gDefSrc> const def_src("gDefSrc");
Entry<gDefOutdir> const def_outdir("gDefOutdir");
Entry<gDefAttr> const def_attr("gDefAttr");
Entry<fDefTitle> const def_title("fDefTitle");
Entry<gAnaPre> const ana_pre("gAnaPre");
Entry<gAnaopt> const ana_opt("gAnaopt");
Entry<gAnaAlloc> const ana_alloc("gAnaAlloc");
Entry<gAnaSrcpat> const ana_srcpat("gAnaSrcpat");
Entry<gMsgOptions> const msg_options("gMsgOptions");
Entry<gOutOptions> const out_options("gOutOptions");
Entry<gOutHM> const out_hm("gOutHM");
Entry<gExtraOpt> const extra_opt("gExtraOpt");
Entry<gAnaStart> const ana_start("gAnaStart");
Entry<gAnaBreakHandler> const ana_break("gAnaBreakHandler");
Entry<gOutHTML> const out_html("gOutHTML");
Entry<gOutRTF> const out_rtf("gOutRTF");
Entry<gOutHLP> const out_hlp("gOutHLP");
Entry<gOpenResult> const open_result("gOpenResult");
Entry<gOutBreakHandler> const out_break("gOutBreakHandler");
Entry<gVappHelp> const vapp_help("gVappHelp");

} // namespace

cMenuHandlerBase::cMenuHandlerBase() = default;
cMenuHandlerBase::~cMenuHandlerBase() = default;

void cMenuHandlerBase::Create(CString const & params, cHandlerList * list, cHandler * parent) {
  parameters_ = params;
  OnGetParam();
  Insert(list, parent);
}

void cMenuHandlerBase::Insert(cHandlerList * list, cHandler * parent) {
  list_ = list;
  set_parent(parent);
  list->insert(std::unique_ptr<cHandler>(this));
}

void cMenuHandlerBase::Remove() {
  if (list_)
    list_->remove(this);
}

int cMenuHandlerBase::OnGetMessageString(CString & text) {
  text = message_;
  return !message_.empty();
}

std::unique_ptr<cMenuHandlerBase> make_handler(std::string_view name) {
  return std::unique_ptr<cMenuHandlerBase>(cat::create_by_name<cMenuHandlerBase>(name));
}
