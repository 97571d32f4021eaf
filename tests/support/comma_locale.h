#pragma once

#include <locale>
#include <string>

namespace lipvane::test {

/// While it lives, the process's numbers look like 1.234,5; no locale needs to be installed.
class CommaLocale {
 public:
  CommaLocale() : before_(std::locale::global(std::locale(std::locale(), new Comma))) {}
  CommaLocale(const CommaLocale&) = delete;
  CommaLocale& operator=(const CommaLocale&) = delete;
  ~CommaLocale() { std::locale::global(before_); }

 private:
  struct Comma : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
  };

  std::locale before_;
};

}  // namespace lipvane::test
