#include "lipvane/host/standalone/scene_writer.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <ostream>
#include <string_view>
#include <utility>

#include "lipvane/host/standalone/curve_keys.h"
#include "lipvane/host/standalone/ma_set_attr.h"
#include "lipvane/host/standalone/ma_statements.h"
#include "lipvane/host/standalone/ma_tokens.h"
#include "lipvane/text/numbers.h"

namespace lipvane::standalone {
namespace {

constexpr std::size_t kNpos = std::string_view::npos;
constexpr std::size_t kKeysPerStatement = 250;  // as the host splits them
constexpr std::size_t kLineLength = 100;

std::string_view LineEndOf(std::string_view text) {
  const std::size_t end = text.find_first_of("\r\n");
  if (end == kNpos || text[end] == '\n') return "\n";
  return text.substr(end, 2) == "\r\n" ? "\r\n" : "\r";
}

/// The shortest number of the file's unit that reads back as exactly the value, when there is one.
std::string InFileUnit(double value, double factor) {
  const double plain = value / factor;
  std::string best;
  for (const double candidate :
       {plain, std::nextafter(plain, -HUGE_VAL), std::nextafter(plain, HUGE_VAL)}) {
    if (candidate * factor != value) continue;
    std::string word = text::ExactReal(candidate);
    if (best.empty() || word.size() < best.size()) best = std::move(word);
  }
  return best.empty() ? text::ExactReal(plain) : best;
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

/// How the file writes what does not change its meaning.
struct Style {
  explicit Style(const SceneData& data)
      : lineEnd(LineEndOf(data.text)),
        page(data.page),
        doublesBackslashes(page.DoublesBackslashes(data.text)) {}

  std::string Quote(std::string_view words) const {
    return Quoted(words, page, doublesBackslashes);
  }

  std::string_view lineEnd;
  CodePage page;
  bool doublesBackslashes;
};

class KeyWriter {
 public:
  KeyWriter(const CurveRecord& record, const KeyTable& table, std::string node, const Style& style)
      : record_(record), table_(table), node_(std::move(node)), style_(style) {
    const FileKeys fileKeys = SortedByTime(table);
    for (const CurveKey& key : record.curve.keys) {
      fileKeys_.push_back(FindKey(fileKeys, key.time));
    }
  }

  /// All statements, separated by a line end and a tab.
  std::string Write() {
    for (std::size_t i = 0; i < kKeyAttributeCount; ++i) {
      const auto attribute = static_cast<KeyAttribute>(i);
      std::size_t first = 0;
      std::vector<std::string> words;
      for (std::size_t key = 0; key <= fileKeys_.size(); ++key) {
        std::string word = key < fileKeys_.size() ? WordOf(attribute, key) : std::string();
        const bool isFull = words.size() == kKeysPerStatement;
        if (word.empty() || isFull) {
          WriteRun(attribute, first, words);
          words.clear();
        }
        if (word.empty()) continue;
        if (words.empty()) first = key;
        words.push_back(std::move(word));
      }
    }
    return std::move(out_);
  }

 private:
  /// What the file must say of a key; empty when it need not say anything.
  std::string WordOf(KeyAttribute attribute, std::size_t i) const {
    const CurveKey& key = record_.curve.keys[i];
    const KeyTable::Key* const inFile = fileKeys_[i];
    std::optional<std::string_view> word;
    if (inFile != nullptr) word = table_.Find(attribute, inFile->index);
    switch (attribute) {
      case KeyAttribute::kTimeValue:
        return TimeValueOf(key, inFile);
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

  std::string TimeValueOf(const CurveKey& key, const KeyTable::Key* inFile) const {
    std::string result = inFile != nullptr ? std::string(inFile->time) : text::ExactReal(key.time);
    result += ' ';
    const double factor = record_.valueFactor;
    const auto old = inFile != nullptr ? text::WholeReal(inFile->value) : std::nullopt;
    const bool isKept =
        old && (*old * factor == key.value || (std::isnan(*old) && std::isnan(key.value)));
    return result += isKept ? std::string(inFile->value) : InFileUnit(key.value, factor);
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

  void WriteRun(KeyAttribute attribute, std::size_t first, const std::vector<std::string>& words) {
    if (words.empty()) return;
    if (!out_.empty()) (out_ += style_.lineEnd) += '\t';
    out_ += "setAttr ";
    if (fileKeys_.size() > 1) out_ += "-s " + std::to_string(fileKeys_.size()) + " ";
    std::string range = std::to_string(first);
    if (words.size() > 1) range += ":" + std::to_string(first + words.size() - 1);
    out_ += style_.Quote(node_ + "." + ShortNameOf(attribute) + "[" + range + "]") + " ";
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

  const CurveRecord& record_;
  const KeyTable& table_;
  const std::string node_;
  const Style& style_;
  std::vector<const KeyTable::Key*> fileKeys_;  // for each key of the curve
  std::string out_;
};

struct Edit {
  Span span;
  std::string text;
};

/// The statement with its line when it has that for itself.
Span WithLine(std::string_view text, Span span) {
  std::size_t begin = span.begin;
  while (begin > 0 && (text[begin - 1] == ' ' || text[begin - 1] == '\t'))
    --begin;
  if (begin > 0 && text[begin - 1] != '\n' && text[begin - 1] != '\r') return span;
  std::size_t end = span.end;
  while (end < text.size() && (text[end] == ' ' || text[end] == '\t'))
    ++end;
  if (end == text.size()) return {begin, end};
  if (text.substr(end, 2) == "\r\n") return {begin, end + 2};
  if (text[end] == '\n' || text[end] == '\r') return {begin, end + 1};
  return span;
}

void AddEdits(const SceneData& data, const CurveRecord& record, const Style& style,
              std::vector<Edit>& edits) {
  const std::string_view text = data.text;
  KeyTable table;
  for (const Span& span : record.keyStatements) {
    AddKeyStatement(text.substr(span.begin, span.end - span.begin - 1), data.page, table);
  }
  SortKeys(table);
  if (record.keyStatements.empty()) {
    std::string keys =
        std::string(style.lineEnd) + "\t" + KeyWriter(record, table, "", style).Write();
    edits.push_back({{record.declarationEnd, record.declarationEnd}, std::move(keys)});
    return;
  }
  // The first statement says how the curve is named there.
  const Span& first = record.keyStatements.front();
  TokenReader reader(text.substr(first.begin, first.end - first.begin - 1), data.page);
  const std::string node(SplitPlug(ReadSetAttr(reader).plug).node);
  edits.push_back({first, KeyWriter(record, table, node, style).Write()});
  for (std::size_t i = 1; i < record.keyStatements.size(); ++i) {
    edits.push_back({WithLine(text, record.keyStatements[i]), {}});
  }
}

/// Where new statements go: before the line that says where the scene ends.
std::size_t FindEnd(const SceneData& data) {
  const std::string_view text = data.text;
  constexpr std::string_view kEnd = "// End of ";
  std::size_t i = data.trailerBegin;
  while (i < text.size()) {
    if (text.substr(i, kEnd.size()) == kEnd) return i;
    if (text.substr(i, 2) == "//") {
      i = std::min(text.find_first_of("\r\n", i), text.size());
    } else if (text.substr(i, 2) == "/*") {
      i = std::min(text.find("*/", i), text.size() - 2) + 2;
    } else {
      ++i;
    }
  }
  return text.size();
}

std::string TextOf(const SceneData& data, const std::vector<NewCurve>& newCurves,
                   const Style& style) {
  const std::string_view lineEnd = style.lineEnd;
  std::string nodes;
  std::string connections;
  const KeyTable none;
  for (const NewCurve& added : newCurves) {
    const CurveRecord& record = data.curves.at(added.curve);
    // Without keys the host would evaluate it to zero.
    if (record.curve.keys.empty()) continue;
    const std::string& name = data.items[added.curve].name;
    nodes += "createNode " + data.TypeOf(added.curve).name + " -n " + style.Quote(name) + ";";
    (nodes += lineEnd) += "\tsetAttr \".tan\" 18;";
    (nodes += lineEnd) += "\tsetAttr \".wgt\" no;";
    (nodes += lineEnd) += "\t" + KeyWriter(record, none, "", style).Write();
    nodes += lineEnd;
    connections += "connectAttr " + style.Quote(name + ".o") + " " + style.Quote(added.plug) + ";";
    connections += lineEnd;
  }
  return nodes + connections;
}

}  // namespace

void WriteScene(const SceneData& data, const std::vector<NewCurve>& newCurves, std::ostream& out) {
  const std::string_view text = data.text;
  const Style style(data);
  std::vector<Edit> edits;
  for (const auto& [item, record] : data.curves) {
    if (record.isNew || record.revision == 0 || record.curve.keys.empty()) continue;
    AddEdits(data, record, style, edits);
  }
  std::string added = TextOf(data, newCurves, style);
  if (!added.empty()) {
    const std::size_t end = FindEnd(data);
    const bool isAtLine = end == 0 || text[end - 1] == '\n' || text[end - 1] == '\r';
    if (!isAtLine) added.insert(0, style.lineEnd);
    edits.push_back({{end, end}, std::move(added)});
  }
  std::sort(edits.begin(), edits.end(),
            [](const Edit& a, const Edit& b) { return a.span.begin < b.span.begin; });
  const auto write = [&out](std::string_view piece) {
    out.write(piece.data(), static_cast<std::streamsize>(piece.size()));
  };
  std::size_t done = 0;
  for (const Edit& edit : edits) {
    write(text.substr(done, edit.span.begin - done));
    write(edit.text);
    done = edit.span.end;
  }
  write(text.substr(done));
}

}  // namespace lipvane::standalone
