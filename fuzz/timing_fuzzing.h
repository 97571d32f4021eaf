#pragma once

#include <string>

/// Reads a timing file, holds what must be true of it, and speaks it. What is read as another form
/// is not kept: libFuzzer drops inputs for which -1 is returned.
int FuzzTiming(const std::string& text, const char* form);
