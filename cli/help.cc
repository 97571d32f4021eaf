#include "cli/help.h"

#include <algorithm>
#include <set>
#include <string_view>
#include <utility>

namespace lipvane::cli {
namespace {

std::string Names(const CLI::Option& option, bool isPositional) {
  if (isPositional) return option.get_name(true, false);
  std::string names;
  for (const std::string& name : option.get_snames())
    names += (names.empty() ? "-" : ", -") + name;
  for (const std::string& name : option.get_lnames())
    names += (names.empty() ? "--" : ", --") + name;
  return names;
}

bool TakesMany(const CLI::Option& option) {
  return option.get_expected_max() >= CLI::detail::expected_max_vector_size;
}

std::string WithValue(const CLI::Option& option) {
  std::string text = Names(option, false);
  if (option.get_expected_max() > 0) text += " " + option.get_type_name();
  return text;
}

std::string Others(const std::set<CLI::Option*>& options, const std::string& before) {
  std::string names;
  for (const CLI::Option* option : options)
    names += (names.empty() ? "" : ", ") + option->get_name();
  return names.empty() ? "" : "; " + before + names;
}

}  // namespace

std::string Wrapped(const std::string& text, std::size_t width, std::size_t indent) {
  std::string lines;
  std::size_t column = indent;
  for (std::size_t i = 0; i < text.size();) {
    const std::size_t end = std::min(text.find_first_of(" \n", i), text.size());
    const std::string word = text.substr(i, end - i);
    const bool isFirst = column == indent;
    if (!isFirst && column + 1 + word.size() > width) {
      lines += "\n" + std::string(indent, ' ');
      column = indent;
    } else if (!isFirst) {
      lines += ' ';
      ++column;
    }
    lines += word;
    column += word.size();
    if (end < text.size() && text[end] == '\n') {
      lines += "\n" + std::string(indent, ' ');
      column = indent;
    }
    i = end + 1;
  }
  return lines;
}

std::string HelpFormatter::Row(const std::string& name, const std::string& description) const {
  const std::size_t column = std::min<std::size_t>(width_ / 3, 26);
  std::string row = "  " + name;
  if (description.empty()) return row + "\n";
  const bool fits = row.size() + 2 <= column;
  row += fits ? std::string(column - row.size(), ' ') : "\n" + std::string(column, ' ');
  return row + Wrapped(description, width_, column) + "\n";
}

std::string HelpFormatter::make_usage(const CLI::App* app, std::string name) const {
  static constexpr std::string_view kUsage = "Usage: ";
  std::string usage = std::move(name);
  for (const CLI::Option* option : app->get_options()) {
    if (!option->get_positional()) continue;
    const std::string positional = Names(*option, true) + (TakesMany(*option) ? "..." : "");
    usage += option->get_required() ? " " + positional : " [" + positional + "]";
  }
  bool hasOptional = false;
  for (const CLI::Option* option : app->get_options()) {
    if (option->get_positional()) continue;
    if (option->get_required()) usage += " " + WithValue(*option);
    if (!option->get_required() && option != app->get_help_ptr()) hasOptional = true;
  }
  if (!app->get_subcommands({}).empty()) {
    usage += " SUBCOMMAND ...";
  } else if (hasOptional) {
    usage += " [OPTIONS]";
  }
  return std::string(kUsage) + Wrapped(usage, width_, kUsage.size()) + "\n";
}

std::string HelpFormatter::make_description(const CLI::App* app) const {
  return Wrapped(app->get_description(), width_) + "\n\n";
}

std::string HelpFormatter::make_footer(const CLI::App* app) const {
  return app->get_footer().empty() ? std::string() : Wrapped(app->get_footer(), width_) + "\n";
}

std::string HelpFormatter::make_subcommand(const CLI::App* app) const {
  return Row(app->get_name(), app->get_description());
}

std::string HelpFormatter::make_option(const CLI::Option* option, bool isPositional) const {
  const std::string name =
      isPositional ? Names(*option, true) + (TakesMany(*option) ? " ..." : "") : WithValue(*option);
  const bool mayRepeat = !isPositional && TakesMany(*option);
  return Row(name, option->get_description() + (mayRepeat ? "; may be repeated" : "") +
                       Others(option->get_needs(), "goes with ") +
                       Others(option->get_excludes(), "not with "));
}

}  // namespace lipvane::cli
