#include "lipvane/speech/phones.h"

#include <cstddef>
#include <unordered_map>

namespace lipvane::speech {

std::vector<Phone> PhonesOf(const Timing& timing, const Meanings& meanings, const Weights* standIn,
                            std::vector<UnknownLabel>& unknown) {
  std::vector<Phone> phones;
  std::unordered_map<std::string_view, std::size_t> places;  // of unknown labels in the list
  for (const TimedLabel& label : timing.labels) {
    const Meaning meaning = meanings.Of(label.text);
    phones.push_back(
        {meaning.weights == nullptr ? standIn : meaning.weights, label.start, label.end});
    if (meaning.weights != nullptr) continue;
    const auto [entry, isNew] = places.emplace(label.text, unknown.size());
    if (isNew) unknown.push_back({label.text, meaning.phoneme, label.line, label.start, 0});
    ++unknown[entry->second].count;
  }
  return phones;
}

}  // namespace lipvane::speech
