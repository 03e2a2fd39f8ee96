// vellumar plan: rules for Ninja, so that it, or an engine that reads its files and runs commands
// on many machines, spreads the reading of a project.

#include <algorithm>
#include <iostream>
#include <set>

#include "ana/read/facts_folder.h"
#include "ana/write_facts.h"
#include "app/cli/exit_status.h"
#include "app/cli/run_options.h"
#include "app/options/options.h"
#include "app/options/project.h"
#include "app/options/settings.h"
#include "vlb/gfilesystem.h"

namespace {

struct Arguments {
  std::string project, ninja, facts;
  std::vector<std::string> targets, set;
};

// In a file of Ninja.
std::string escaped(std::string const & path) {
  std::string text;
  for (char const c : path)
    (text += c == '$' || c == ' ' || c == ':' ? "$" : "") += c;
  return text;
}

// A word of the shell, in a file of Ninja.
std::string shell_word(std::string const & word) {
  std::string text = "'";
  for (char const c : word)
    if (c == '\'')
      text += "'\\''";
    else
      (text += c == '$' ? "$" : "") += c;
  return text + "'";
}

class Plan {
public:
  explicit Plan(Arguments const & arguments)
      : arguments_(arguments),
        facts_(facts_folder(arguments)),
        project_(Vapp::project().file()) {}

  // Empty if a name can't stand in the file.
  std::string text() {
    gRunInput const input = Vapp::run_input();
    for (gSrcFile const & source : input_files_of(input))
      sources_.push_back(source.path());
    add_rules();
    add_plan();
    text_ += "build " + in_facts(gFactsFolder::macros_name) + ": macros" + list(sources_) +
             needs() + "\n";
    add_facts();
    text_ += "build " + in_facts("built") + ": document |" + all_facts_ + " " + escaped(project_) +
             " " + escaped(input.script) + "\n  depfile = " + in_facts("built.d") +
             "\n  deps = gcc\ndefault " + in_facts("built") + "\n";
    return text_;
  }

private:
  static gPathstring facts_folder(Arguments const & arguments) {
    gPathstring const ninja = gRunOptions::absolute(arguments.ninja);
    return arguments.facts.empty() ? gPathstring(ninja.dir_name()).append("facts")
                                   : gRunOptions::absolute(arguments.facts);
  }

  std::string in_facts(std::string const & name) const {
    return escaped(gPathstring(facts_).append(name));
  }

  static std::string list(std::vector<std::string> const & paths) {
    std::string text;
    for (std::string const & path : paths)
      text += " $\n  " + escaped(path);
    return text;
  }

  std::string needs() const { return " | " + escaped(project_) + " $program"; }

  std::string sets() const {
    std::string text;
    for (std::string const & one : arguments_.set)
      text += " --set " + shell_word(one);
    return text;
  }

  void add_rules() {
    std::string const program = gPathstring(Vapp::program_dir()).append("vellumar");
    std::string const project = shell_word(project_), facts = shell_word(facts_);
    std::string targets;
    for (std::string const & target : arguments_.targets)
      targets += " --target " + target;
    text_ =
        "# Made by 'vellumar plan'; made again when the project or a folder of sources changes.\n"
        "ninja_required_version = 1.5\nprogram = " +
        escaped(program) + "\nvellumar = " + shell_word(program) +
        "\n\nrule plan\n  command = $vellumar plan " + project + " --ninja " +
        shell_word(gRunOptions::absolute(arguments_.ninja)) + " --facts " + facts + targets +
        sets() + "\n  generator = 1\n  restat = 1\n  description = plan\n" +
        "\nrule macros\n  command = $vellumar facts --macros --project " + project + " -o " +
        facts + sets() + "\n  restat = 1\n  description = macros\n" +
        "\nrule facts\n  command = $vellumar facts -j 1 --project " + project + " -o " + facts +
        sets() + " $in\n  description = facts $in\n" +
        "\nrule document\n  command = $vellumar build " + project + " --facts " + facts + targets +
        sets() + " --depfile $out.d && touch $out\n  pool = console\n" +
        "  description = document\n\n";
  }

  // A folder's time changes with the names in it. Ninja knows its own file by the name that it was
  // started with, which is the last part where it works in the file's folder.
  void add_plan() {
    std::set<std::string> folders;
    for (std::string const & source : sources_)
      folders.insert(gPathstring(source).dir_name());
    text_ += "build " + escaped(gRunOptions::absolute(arguments_.ninja).file_name()) + ": plan | " +
             escaped(project_) + " $program" + list({folders.begin(), folders.end()}) + "\n\n";
  }

  // Some sources a command, since a process costs more than the reading of a small file. Where a
  // group ends is told by names alone: a new file changes no group but its own.
  void add_facts() {
    std::vector<std::string> group;
    for (std::string const & source : sources_) {
      group.push_back(source);
      if (gFactsFolder::name_of(source).front() == '0' || &source == &sources_.back()) {
        std::string names;
        for (std::string const & one : group)
          names += " $\n  " + in_facts(gFactsFolder::name_of(one));
        text_ += "build" + names + ": facts" + list(group) + needs() + " " +
                 in_facts(gFactsFolder::macros_name) + "\n";
        all_facts_ += names;
        group.clear();
      }
    }
  }

  Arguments const & arguments_;
  gPathstring facts_;
  std::string project_;
  std::vector<std::string> sources_;
  std::string text_, all_facts_;
};

int run(Arguments const & arguments, gCommandContext & context) {
  if (!load_project(arguments.project, context) || !assign_options(arguments.set, context))
    return exit_refused;
  if (!Vapp::run_input().modern) {
    context.outside.tell("Only the modern dialect reads sources by themselves (ana/dialect).");
    return exit_refused;
  }
  std::string const text = Plan(arguments).text();
  gPathstring const path = gRunOptions::absolute(arguments.ninja);
  std::string old;
  if ((gFileSystem::file_exists(path) && gFileSystem::read_file(path, old) && old == text) ||
      gFileSystem::write_file_atomic(path, text))
    return exit_ok;
  context.outside.tell("Cannot write " + path);
  return exit_failed;
}

} // namespace

void add_plan(CLI::App & app, gCommandContext & context) {
  auto const arguments = std::make_shared<Arguments>();
  CLI::App * command =
      app.add_subcommand("plan", "Write rules by which Ninja makes the documentation of a project");
  command->add_option("PROJECT", arguments->project, "The project file")->required();
  command->add_option("--ninja", arguments->ninja, "The file to write")
      ->required()
      ->check(not_empty());
  command->add_option("--facts", arguments->facts,
                      "The folder for facts; 'facts' beside the file without it");
  command->add_option("--target", arguments->targets, "A format to write; htm without it")
      ->check(CLI::IsMember({"htm", "rtf", "hlp"}))
      ->allow_extra_args(false);
  command->add_option("--set", arguments->set, "Set an option of the project for these runs alone")
      ->type_name("KEY=VALUE")
      ->allow_extra_args(false);
  command->callback([arguments, &context] { context.status = run(*arguments, context); });
}
