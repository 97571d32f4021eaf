#include "cli/wrong_usage.h"

#include <algorithm>
#include <cstddef>

#include "lipvane/text/lists.h"
#include "lipvane/text/printable.h"
#include "lipvane/text/similar.h"

namespace lipvane::cli {
namespace {

constexpr char kNoMoreFlags[] = "--";

std::string WithoutDashes(const std::string& flag) {
  const std::string name = flag.substr(0, flag.find('='));
  return name.substr(std::min(name.find_first_not_of('-'), name.size()));
}

std::string UnknownFlag(const CLI::App& command, const std::string& flag) {
  std::string sentence = "unknown option " + text::QuotedLine(flag);
  std::vector<std::string> known;
  for (const CLI::Option* option : command.get_options()) {
    known.insert(known.end(), option->get_lnames().begin(), option->get_lnames().end());
  }
  const std::string name = WithoutDashes(flag);
  if (const auto nearest = text::Nearest(name, known)) {
    return sentence + "; did you mean \"--" + *nearest + "\"?";
  }
  for (const CLI::Option* option : command.get_options()) {  // "--output" where there is only "-o"
    if (option->get_lnames().empty() && option->check_sname(name.substr(0, 1))) {
      return sentence + "; did you mean \"" + option->get_name() + "\"?";
    }
  }
  return sentence;
}

bool IsFlag(const std::string& argument) {
  return argument.size() > 1 && argument[0] == '-';
}

/// Everything that is required and not there, where the parser names the first alone.
std::vector<std::string> Missing(const CLI::App& command) {
  std::vector<std::string> names;
  for (const CLI::Option* option : command.get_options()) {
    if (option->get_required() && option->count() == 0) names.push_back(option->get_name());
  }
  return names;
}

/// For an option that has too many values, or none.
std::string WrongCount(const CLI::App& command, const std::string& otherwise) {
  for (const CLI::Option* option : command.get_options()) {
    if (option->get_expected_max() == 1 && option->count() > 1) {
      return option->get_name() + " is given " + std::to_string(option->count()) + " times";
    }
  }
  const CLI::Option* option = command.get_option_no_throw(otherwise.substr(0, otherwise.find(':')));
  if (option == nullptr) return otherwise;
  return option->get_name() + " needs a value: " + option->get_name() + " " +
         option->get_type_name();
}

std::vector<std::string> TooMany(std::vector<std::string> arguments) {
  arguments.erase(std::remove(arguments.begin(), arguments.end(), kNoMoreFlags), arguments.end());
  const bool isOne = arguments.size() == 1;
  for (std::string& argument : arguments)
    argument = text::QuotedLine(argument);
  return {text::JoinedNames(arguments) + (isOne ? " is" : " are") + " too many"};
}

}  // namespace

std::vector<std::string> SubcommandNames(const CLI::App& app) {
  std::vector<std::string> names;
  for (const CLI::App* command : app.get_subcommands([](const CLI::App*) { return true; }))
    names.push_back(command->get_name());
  return names;
}

std::string NoSubcommand(const CLI::App& app, const std::string& word) {
  return "there is no subcommand " + text::QuotedLine(word) +
         text::DidYouMean(word, SubcommandNames(app));
}

std::vector<std::string> UsageProblems(const CLI::App& app, const CLI::ParseError& error) {
  const auto chosen = app.get_subcommands();
  const CLI::App& command = chosen.empty() ? app : *chosen.front();
  std::vector<std::string> sentences;
  for (const CLI::App* level : {&app, &command}) {
    for (const std::string& argument : level->remaining()) {
      if (argument == kNoMoreFlags) break;
      if (IsFlag(argument)) {
        sentences.push_back(UnknownFlag(*level, argument));
      } else if (level == &app) {
        return {NoSubcommand(app, argument)};
      }
    }
    if (!sentences.empty()) return sentences;
  }
  const std::vector<std::string> missing = Missing(command);
  switch (static_cast<CLI::ExitCodes>(error.get_exit_code())) {
    case CLI::ExitCodes::RequiredError:
      return {text::JoinedNames(missing) +
              (missing.size() == 1 ? " is required" : " are required")};
    case CLI::ExitCodes::ExtrasError:
      return TooMany(command.remaining());
    case CLI::ExitCodes::ArgumentMismatch:
      return {WrongCount(command, error.what())};
    default:
      return {error.what()};
  }
}

}  // namespace lipvane::cli
