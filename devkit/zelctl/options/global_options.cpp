// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/options/command_options.h"

#include "devkit/zelctl/options/option_kinds.h"

namespace zelctl {

void AddGlobalOptions(CLI::App& app, GlobalOptions* globals) {
  app.add_option("--plugin", globals->session.plugin, "The plug-in's library")
      ->take_last()
      ->type_name("PATH");
  app.add_option("--panel", globals->session.panel, "Panel description, handed to the plug-in")
      ->take_last()
      ->each([globals](const std::string&) { globals->panel_given = true; })
      ->type_name("PATH");
  app.add_option("--log-level", globals->session.log_level,
                 "0 errors, 1 start-up too, 2 everything; default: the\n"
                 "environment's vendor.display.zelloglevel, or else 0")
      ->check(WholeNumber(0, 2))
      ->type_name("LEVEL");
  app.add_option("--parser", globals->session.libraries.parser,
                 "The mode parser; default: as the plug-in finds it by name")
      ->take_last()
      ->type_name("FILE");
  app.add_option("--algo", globals->session.libraries.algo,
                 "The algorithm library; default: the same way")
      ->take_last()
      ->type_name("FILE");
  app.add_option("--arg", globals->session.arg,
                 "Text for the libraries' Init; default: the path of --panel")
      ->take_last()
      ->type_name("TEXT");
  app.add_flag("--strict", globals->strict,
               "Fail where the host would not get an answer whole: a failed\n"
               "parser, a block that does not arrive, a number that is none");
  auto* json = app.add_flag("--json", globals->json, "Print JSON instead of tables; not for plot");
  app.add_flag("--tables", globals->tables, "With --json: tables and opaque bytes in full")
      ->needs(json);
  globals->session.problems = &globals->problems;
}

}  // namespace zelctl
