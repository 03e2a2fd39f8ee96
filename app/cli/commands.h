// The commands of the program, one file each.
#pragma once

#include <CLI/CLI.hpp>

#include "app/cli/cli_outside.h"

// What the commands share: the port, and the status that the chosen command leaves.
struct gCommandContext {
  gCliOutside & outside;
  int status = 0;
  std::vector<std::string> words; // of the command line, the command first
};

// Each enters its command with its arguments; when the command line names it, it runs and sets the
// status. The context must outlive the parsing.
void add_new(CLI::App & app, gCommandContext & context);
void add_get(CLI::App & app, gCommandContext & context);
void add_set(CLI::App & app, gCommandContext & context);
void add_check(CLI::App & app, gCommandContext & context);
void add_analyze(CLI::App & app, gCommandContext & context);
void add_build(CLI::App & app, gCommandContext & context);
void add_quick(CLI::App & app, gCommandContext & context);
void add_watch(CLI::App & app, gCommandContext & context);
void add_facts(CLI::App & app, gCommandContext & context);
void add_plan(CLI::App & app, gCommandContext & context);

// Loads a project; false, and a line on standard error, if it can't be read.
bool load_project(std::string const & path, gCommandContext & context);
// Writes it; false, and a line on standard error, if that fails.
bool save_project(gCommandContext & context);
// Applies each KEY=VALUE to the loaded project, all or none; false, and a line on standard error
// that names the one to blame, if they are refused.
bool assign_options(std::vector<std::string> const & assignments, gCommandContext & context);
