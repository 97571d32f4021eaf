#include "lipvane/host/standalone/key_edits.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <functional>
#include <iterator>
#include <optional>
#include <utility>

#include "lipvane/host/standalone/curve_keys.h"
#include "lipvane/host/standalone/ma_set_attr.h"
#include "lipvane/host/standalone/ma_tokens.h"
#include "lipvane/text/numbers.h"

namespace lipvane::standalone {
namespace {

constexpr std::size_t kKeysPerStatement = 250;  // as the host splits them
constexpr std::size_t kLineLength = 100;

/// Where in the file a word stands; nothing when it is not of the file.
std::optional<Span> PlaceOf(std::string_view word, std::string_view text) {
  const std::less<> isBefore;
  if (word.data() == nullptr || isBefore(word.data(), text.data()) ||
      isBefore(text.data() + text.size(), word.data() + word.size())) {
    return std::nullopt;
  }
  const auto begin = static_cast<std::size_t>(word.data() - text.data());
  return Span{begin, begin + word.size()};
}

/// A key statement of the file.
struct KeyStatement {
  Span span;
  std::string node;   ///< how the curve is named there
  std::string flags;  ///< those to keep
};

/// In the order of the file.
using Statements = std::vector<KeyStatement>;

std::string_view TextOf(std::string_view text, const Span& span) {
  return text.substr(span.begin, span.end - span.begin - 1);
}

std::array<Statements, kKeyAttributeCount> ReadStatements(std::string_view text,
                                                          const CurveRecord& record,
                                                          const CodePage& page) {
  std::array<Statements, kKeyAttributeCount> result;
  for (const Span& span : record.keyStatements) {
    const std::string_view statement = TextOf(text, span);
    TokenReader reader(statement, page);
    const PlugName plug = SplitPlug(ReadSetAttr(reader).plug);
    const auto attribute = FindKeyAttribute(plug.attribute.substr(0, plug.attribute.find('[')));
    if (!attribute) continue;
    result[static_cast<std::size_t>(*attribute)].push_back(
        {span, std::string(plug.node), FlagsWithoutSize(statement, page)});
  }
  return result;
}

/// What a key of the curve was in the file: its words stay as they are while its values do.
using FileKeys = std::vector<std::pair<double, const KeyTable::Key*>>;

FileKeys SortedByTime(const KeyTable& table) {
  FileKeys keys;
  for (const KeyTable::Key& key : table.keys) {
    keys.emplace_back(text::WholeReal(key.time).value_or(0.0), &key);
  }
  std::stable_sort(keys.begin(), keys.end(),
                   [](const auto& a, const auto& b) { return a.first < b.first; });
  return keys;
}

const KeyTable::Key* FindKey(const FileKeys& keys, double time) {
  const auto behind =
      std::upper_bound(keys.begin(), keys.end(), time,
                       [](double wanted, const auto& key) { return wanted < key.first; });
  if (behind == keys.begin() || (behind - 1)->first != time) return nullptr;
  return (behind - 1)->second;  // of equal times the last counts
}

class KeyWriter {
 public:
  KeyWriter(std::string_view text, const CurveRecord& record, const KeyTable& table,
            const Style& style)
      : text_(text), record_(record), table_(table), style_(style) {
    const FileKeys fileKeys = SortedByTime(table);
    for (const CurveKey& key : record.curve.keys) {
      fileKeys_.push_back(FindKey(fileKeys, key.time));
    }
  }

  /// The values that changed, in their places; nothing when that is not all.
  std::optional<std::vector<Edit>> ChangedValues() const {
    std::vector<Edit> edits;
    for (std::size_t i = 0; i < fileKeys_.size(); ++i) {
      if (fileKeys_[i] == nullptr) return std::nullopt;
      const std::string_view old = fileKeys_[i]->value;
      std::string word = ValueOf(record_.curve.keys[i], fileKeys_[i]);
      if (word == old) continue;
      const auto place = PlaceOf(old, text_);
      if (!place) return std::nullopt;
      edits.push_back({*place, std::move(word)});
    }
    return edits;
  }

  /// Does the file say of each key what it must say?
  bool IsAsInFile(KeyAttribute attribute) const {
    if (attribute == KeyAttribute::kTimeValue) return false;
    for (std::size_t i = 0; i < fileKeys_.size(); ++i) {
      const auto inFile = table_.Find(attribute, static_cast<std::uint32_t>(i));
      if (inFile.value_or(std::string_view()) != WordOf(attribute, i)) return false;
    }
    return true;
  }

  /// The statements of one array, which keep the flags of those that they replace.
  std::string Write(KeyAttribute attribute, const std::string& node, const Statements& replaced) {
    out_.clear();
    std::string_view flags = replaced.empty() ? std::string_view() : replaced.front().flags;
    std::string_view runFlags;
    std::size_t first = 0;
    std::vector<std::string> words;
    for (std::size_t key = 0; key <= fileKeys_.size(); ++key) {
      std::string word = key < fileKeys_.size() ? WordOf(attribute, key) : std::string();
      // A key that the file does not have is taken for one of those before it.
      if (!word.empty()) flags = FlagsOf(attribute, key, replaced).value_or(flags);
      if (word.empty() || words.size() == kKeysPerStatement || flags != runFlags) {
        WriteRun(std::string(runFlags), node + "." + ShortNameOf(attribute), first, words);
        words.clear();
      }
      if (word.empty()) continue;
      if (words.empty()) {
        first = key;
        runFlags = flags;
      }
      words.push_back(std::move(word));
    }
    return std::move(out_);
  }

 private:
  std::optional<std::string_view> FlagsOf(KeyAttribute attribute, std::size_t i,
                                          const Statements& statements) const {
    if (fileKeys_[i] == nullptr) return std::nullopt;
    const std::uint32_t index = fileKeys_[i]->index;
    const std::string_view word = attribute == KeyAttribute::kTimeValue
                                      ? fileKeys_[i]->time
                                      : table_.Find(attribute, index).value_or(std::string_view());
    const auto place = PlaceOf(word, text_);
    if (!place) return std::nullopt;
    const auto behind = std::upper_bound(
        statements.begin(), statements.end(), place->begin,
        [](std::size_t at, const KeyStatement& statement) { return at < statement.span.begin; });
    if (behind == statements.begin()) return std::nullopt;
    return std::string_view((behind - 1)->flags);
  }

  /// What the file must say of a key; empty when it need not say anything.
  std::string WordOf(KeyAttribute attribute, std::size_t i) const {
    const CurveKey& key = record_.curve.keys[i];
    const KeyTable::Key* const inFile = fileKeys_[i];
    std::optional<std::string_view> word;
    if (inFile != nullptr) word = table_.Find(attribute, inFile->index);
    switch (attribute) {
      case KeyAttribute::kTimeValue:
        return (inFile != nullptr ? std::string(inFile->time) : text::ExactReal(key.time)) + " " +
               ValueOf(key, inFile);
      case KeyAttribute::kInType:
        return TypeWord(word, key.inType);
      case KeyAttribute::kOutType:
        return TypeWord(word, key.outType);
      case KeyAttribute::kInX:
        return RealWord(word, key.inTangent.x, 1.0);
      case KeyAttribute::kInY:
        return RealWord(word, key.inTangent.y, 0.0);
      case KeyAttribute::kOutX:
        return RealWord(word, key.outTangent.x, 1.0);
      case KeyAttribute::kOutY:
        return RealWord(word, key.outTangent.y, 0.0);
      default:
        return std::string(word.value_or(std::string_view()));
    }
  }

  std::string ValueOf(const CurveKey& key, const KeyTable::Key* inFile) const {
    const double factor = record_.valueFactor;
    const auto old = inFile != nullptr ? text::WholeReal(inFile->value) : std::nullopt;
    const bool isKept =
        old && (*old * factor == key.value || (std::isnan(*old) && std::isnan(key.value)));
    return isKept ? std::string(inFile->value) : InFileUnit(key.value, factor);
  }

  std::string TypeWord(std::optional<std::string_view> word, Tangent type) const {
    const auto number = word ? text::WholeReal(*word) : std::nullopt;
    if (number && TangentOf(*number) == type) return std::string(*word);
    if (!word && type == record_.tangent) return {};
    return std::to_string(static_cast<int>(type));
  }

  static std::string RealWord(std::optional<std::string_view> word, double value, double standard) {
    const auto number = word ? text::WholeReal(*word) : std::nullopt;
    if (number && (*number == value || std::isnan(*number))) return std::string(*word);
    if (!word && value == standard) return {};
    return text::ExactReal(value);
  }

  void WriteRun(const std::string& flags, const std::string& plug, std::size_t first,
                const std::vector<std::string>& words) {
    if (words.empty()) return;
    if (!out_.empty()) (out_ += style_.lineEnd) += '\t';
    out_ += "setAttr ";
    if (!flags.empty()) out_ += flags + " ";
    if (fileKeys_.size() > 1) out_ += "-s " + std::to_string(fileKeys_.size()) + " ";
    std::string range = std::to_string(first);
    if (words.size() > 1) range += ":" + std::to_string(first + words.size() - 1);
    out_ += style_.Quote(plug + "[" + range + "]") + " ";
    std::size_t lineLength = 0;
    for (const std::string& word : words) {
      if (lineLength + word.size() > kLineLength) {
        (out_ += style_.lineEnd) += "\t\t";
        lineLength = 0;
      }
      out_ += ' ';
      out_ += word;
      lineLength += word.size() + 1;
    }
    out_ += ';';
  }

  const std::string_view text_;
  const CurveRecord& record_;
  const KeyTable& table_;
  const Style& style_;
  std::vector<const KeyTable::Key*> fileKeys_;  // for each key of the curve
  std::string out_;
};

std::string_view LineEndOf(std::string_view text) {
  const std::size_t end = text.find_first_of("\r\n");
  if (end == std::string_view::npos || text[end] == '\n') return "\n";
  return text.substr(end, 2) == "\r\n" ? "\r\n" : "\r";
}

}  // namespace

Style::Style(const SceneData& data)
    : lineEnd(LineEndOf(data.text)),
      page(data.page),
      doublesBackslashes(page.DoublesBackslashes(data.text)) {}

std::string Style::Quote(std::string_view words) const {
  return Quoted(words, page, doublesBackslashes);
}

void AddKeyEdits(std::string_view text, const CurveRecord& record, const Style& style,
                 KeyEdits& edits) {
  KeyTable table;
  for (const Span& span : record.keyStatements)
    AddKeyStatement(TextOf(text, span), style.page, table);
  SortKeys(table);
  KeyWriter writer(text, record, table, style);
  if (auto changed = writer.ChangedValues()) {
    std::move(changed->begin(), changed->end(), std::back_inserter(edits.edits));
    return;
  }
  const auto statements = ReadStatements(text, record, style.page);
  // Arrays that the file does not have follow the keys, or the curve's creation.
  const Statements& keys = statements[static_cast<std::size_t>(KeyAttribute::kTimeValue)];
  const std::size_t home = keys.empty() ? record.declarationEnd : keys.front().span.end;
  const std::string node = keys.empty() ? std::string() : keys.front().node;
  std::string added;
  for (std::size_t i = 0; i < kKeyAttributeCount; ++i) {
    const auto attribute = static_cast<KeyAttribute>(i);
    const Statements& old = statements[i];
    if (!old.empty() && writer.IsAsInFile(attribute)) continue;
    std::string written = writer.Write(attribute, old.empty() ? node : old.front().node, old);
    const bool isReplaced = !old.empty() && !written.empty();
    if (!isReplaced && !written.empty()) ((added += style.lineEnd) += '\t') += written;
    if (isReplaced) edits.edits.push_back({old.front().span, std::move(written)});
    for (std::size_t k = isReplaced ? 1 : 0; k < old.size(); ++k)
      edits.removed.push_back(old[k].span);
  }
  if (!added.empty()) edits.edits.push_back({{home, home}, std::move(added)});
}

std::string NewKeyStatements(const CurveRecord& record, const Style& style) {
  const KeyTable none;
  KeyWriter writer({}, record, none, style);
  std::string result;
  for (std::size_t i = 0; i < kKeyAttributeCount; ++i) {
    const std::string written = writer.Write(static_cast<KeyAttribute>(i), "", {});
    if (!written.empty() && !result.empty()) (result += style.lineEnd) += '\t';
    result += written;
  }
  return result;
}

}  // namespace lipvane::standalone
