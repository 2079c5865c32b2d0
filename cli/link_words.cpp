#include <memory>
#include <string>

#include "cli/command_words.h"
#include "cli/link_file_command.h"
#include "cli/links_commands.h"

namespace tallyo {
namespace {

struct AddWords {
  NewLink link;
  std::string file;  // empty: the link of the other words
  bool dryRun = false;
};

// One link in words, or many in a file.
ExitStatus RunLinksAdd(Console& console, const AddWords& words) {
  if (!words.file.empty()) {
    return LinksAddFrom(console, words.file, words.dryRun ? DryRun::Yes : DryRun::No);
  }
  return LinksAdd(console, words.link);
}

void AddLinksAdd(CLI::App& group, ChosenCommand& chosen) {
  auto words = std::make_shared<AddWords>();
  CLI::App* add = group.add_subcommand("add", "Register a link on the service and monitor it");
  CLI::Option* path =
      add->add_option("PATH", words->link.path, "The address that visitors are passed on to");
  CLI::Option* name = add->add_option("--name", words->link.name, "The link's friendly name");
  CLI::Option* reference =
      add->add_option("--reference", words->link.reference,
                      "The link's name on the service (default: the last part of PATH)");
  CLI::Option* size = add->add_option("--size", words->link.sizeKb, "The size of the file, in KB");
  CLI::Option* from =
      add->add_option("--from", words->file,
                      "Add the links of a file instead ('-': standard input), one on each line: "
                      "path,name[,reference[,size_kb]]");
  add->add_flag("--dry-run", words->dryRun, "Only say what --from would add")->needs(from);
  for (CLI::Option* option : {path, name, reference, size}) {
    from->excludes(option);
  }
  add->callback([&chosen, words, path, name, from] {
    if (from->empty() && path->empty()) {
      throw CLI::RequiredError("PATH, or --from,");
    }
    if (from->empty() && name->empty()) {
      throw CLI::RequiredError("--name");
    }
    chosen = [words](Console& console) { return RunLinksAdd(console, *words); };
  });
}

}  // namespace

void AddLinks(CLI::App& app, ChosenCommand& chosen) {
  CLI::App* group = AddGroup(app, "links", "The monitored links");
  Choose(group->add_subcommand("list", "List the monitored links"), chosen,
         std::make_shared<NoWords>(),
         [](Console& console, const NoWords&) { return LinksList(console); });
  AddLinksAdd(*group, chosen);
  auto name = std::make_shared<std::string>();
  CLI::App* remove = group->add_subcommand("remove", "Remove a link from the service and the list");
  remove->add_option("NAME", *name, "The link's friendly name")->required();
  Choose(remove, chosen, name,
         [](Console& console, const std::string& given) { return LinksRemove(console, given); });
  auto page = std::make_shared<std::string>();
  CLI::App* scan = group->add_subcommand("scan", "List the links found on a web page");
  scan->add_option("PAGE", *page, "The page's address")->required();
  Choose(scan, chosen, page,
         [](Console& console, const std::string& given) { return LinksScan(console, given); });
}

}  // namespace tallyo
