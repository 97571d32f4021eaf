#pragma once

#include <CLI/CLI.hpp>
#include <cstddef>
#include <string>

namespace lipvane::cli {

/// The text in lines of at most `width` characters. It begins behind `indent` others; further lines
/// get as many blanks. A line feed begins a line; a word that is longer than a line has one to
/// itself.
std::string Wrapped(const std::string& text, std::size_t width, std::size_t indent = 0);

/// Help in lines of at most a width.
class HelpFormatter : public CLI::Formatter {
 public:
  explicit HelpFormatter(std::size_t width) : width_(width) { label("Positionals", "Arguments"); }

  std::string make_usage(const CLI::App* app, std::string name) const override;
  std::string make_description(const CLI::App* app) const override;
  std::string make_footer(const CLI::App* app) const override;
  std::string make_subcommand(const CLI::App* app) const override;
  std::string make_option(const CLI::Option* option, bool isPositional) const override;

 private:
  std::string Row(const std::string& name, const std::string& description) const;

  std::size_t width_;
};

}  // namespace lipvane::cli
