#pragma once

#include <CLI/CLI.hpp>
#include <memory>

#include "cli/commands.h"

namespace tallyo {

// What the files that read the words of commands share.

// A command that only holds others.
inline CLI::App* AddGroup(CLI::App& app, const char* name, const char* what) {
  CLI::App* group = app.add_subcommand(name, what);
  group->require_subcommand(1);
  return group;
}

// Makes `run` with these words what the command does. The words of one command live as long as the
// parser that fills them.
template <typename Words, typename Run>
void Choose(CLI::App* command, ChosenCommand& chosen, const std::shared_ptr<Words>& words,
            Run run) {
  command->callback([&chosen, words, run] {
    chosen = [words, run](Console& console) { return run(console, *words); };
  });
}

struct NoWords {};

// The commands of each group.
void AddLinks(CLI::App& app, ChosenCommand& chosen);
void AddSettings(CLI::App& app, ChosenCommand& chosen);

}  // namespace tallyo
