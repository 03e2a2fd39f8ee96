// Times each stage by itself over all files of a folder:
//   bench_stages --folder=DIR [options of Google Benchmark]
// The bytes per second are those of the sources. The number of rounds is fixed, since each needs
// all stages in front of its own.

#include <cstring>
#include <filesystem>

#include <benchmark/benchmark.h>

#include "ana/anadat/tables.h"
#include "ana/cmdpar/keywords.h"
#include "ana/stages.h"
#include "app/options/completion.h"
#include "app/options/defaults.h"
#include "app/options/options.h"
#include "vlb/gmsghandler.h"

namespace {

std::string folder = ".";
std::vector<gFileFacts> files; // of the round in hand

void set_up_project() {
  Vapp::build_defaults(Vapp::options);
  Vapp::complete_options(Vapp::options);
  auto group = make_ref<cMapObj>();
  (*group)["path"] = cat::make(folder + "/**");
  (*group)["files"] = cat::make("*.h;*.hpp;*.hxx;*.c;*.cpp;*.cxx;*.p;*.pas");
  Vapp::options["inputfiles"]["1"] = cRef<cObj>(group);
  Vapp::options["inputcurdir"] = cat::make(folder);
  // Reports would be measured too.
  Msg::log.minlvl_disp(Msg::error);
  Msg::log.minlvl_file(Msg::error);
  Global::objects().init_all();
}

std::int64_t source_bytes() {
  std::int64_t sum = 0;
  for (gSrcFile const & file : gSrcFiles)
    sum += static_cast<std::int64_t>(std::filesystem::file_size(std::string(file.path())));
  return sum;
}

// The stages in their order; a benchmark runs those in front of its own without timing them.
using Stage = void (*)();
constexpr Stage stages[] = {
    [] { ana_preprocess(gSrcFiles); }, [] { files = ana_text_units(gInputFiles); },
    [] { ana_program_code(files); },   [] { ana_associate(); },
    [] { ana_update_units(); },        [] { ana_check(); },
};
constexpr char const * names[] = {"preprocess", "text_units",   "program_code",
                                  "associate",  "update_units", "check"};

void run_stage(benchmark::State & state, std::size_t number) {
  std::int64_t bytes = 0;
  for (auto _ : state) {
    state.PauseTiming();
    files.clear(); // freeing the last round's is no part of this one
    Global::objects().reset_all();
    gInput.set(Vapp::run_input());
    gUEKeywords.build_keywords(*gInput);
    ana_input_files();
    for (std::size_t i = 0; i < number; ++i)
      stages[i]();
    bytes += source_bytes();
    state.ResumeTiming();
    stages[number]();
    state.PauseTiming();
    ana_delete_temp();
    state.ResumeTiming();
  }
  state.SetBytesProcessed(bytes);
}

} // namespace

int main(int argc, char ** argv) {
  for (int i = 1; i < argc; ++i)
    if (std::strncmp(argv[i], "--folder=", 9) == 0)
      folder = std::filesystem::absolute(argv[i] + 9).string();
  set_up_project();
  for (std::size_t i = 0; i < std::size(stages); ++i)
    benchmark::RegisterBenchmark(names[i], run_stage, i)
        ->Iterations(5)
        ->Unit(benchmark::kMillisecond);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
