#include "lipvane/host/standalone/ma_reader.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <set>
#include <stdexcept>
#include <string_view>
#include <utility>
#include <vector>

#include "lipvane/host/standalone/curve_keys.h"
#include "lipvane/host/standalone/ma_flags.h"
#include "lipvane/host/standalone/ma_set_attr.h"
#include "lipvane/host/standalone/ma_statements.h"
#include "lipvane/host/standalone/ma_tokens.h"
#include "lipvane/host/standalone/scene.h"
#include "lipvane/host/standalone/shown_name.h"
#include "lipvane/text/byte_search.h"
#include "lipvane/text/numbers.h"

namespace lipvane::standalone {
namespace {

/// The scene's clock, which every scene has without making it.
constexpr ItemId kTimeItem = kNoItem - 1;

/// Commands of a scene file that say nothing about what is understood here.
constexpr std::array<std::string_view, 18> kPassedOver{
    "requires",      "fileInfo",      "addAttr",     "relationship", "dataStructure",  "lockNode",
    "applyMetadata", "deleteAttr",    "aliasAttr",   "setKeyPath",   "connectDynamic", "namespace",
    "addExtension",  "dynExpression", "shadingNode", "scriptNode",   "sets",           "workspace",
};

class Reader {
 public:
  Reader(std::string text, const std::string& name) : name_(name), lines_({}) {
    data_.text = std::move(text);
    lines_ = LineCounter(data_.text);
    data_.page = CodePage::OfScene(data_.text);
  }

  SceneData Read(const std::function<void(std::size_t, std::size_t)>& progress) {
    if (data_.text.substr(0, 4) == "FOR4" || data_.text.substr(0, 4) == "FOR8") {
      throw SceneError(name_ + ": a binary scene, not a Maya ASCII one");
    }
    if (data_.text.find_first_not_of(" \t\r\n") == std::string::npos) {
      throw SceneError(name_ + ": the file is empty");
    }
    constexpr std::size_t kHeader = 256;
    isScene_ = data_.text.substr(0, kHeader).find("//Maya ASCII") != std::string::npos;
    try {
      ReadStatements(progress);
    } catch (const ScanError& error) {
      RefuseUnlessScene();
      throw SceneError(Place(error.offset()) + error.what());
    } catch (const std::length_error& error) {
      throw SceneError(Place(statement_.begin) + error.what());
    }
    RefuseUnlessScene();
    if (notesLeftOut_ > 0) {
      data_.notes.push_back(name_ + ": " + std::to_string(notesLeftOut_) + " more were left out");
    }
    data_.SortValues();
    // The last rate that the file says is that of all curves.
    for (auto& [item, curve] : data_.curves)
      curve.curve.framesPerSecond = data_.framesPerSecond;
    return std::move(data_);
  }

 private:
  using Action = void (Reader::*)(TokenReader&);

  /// What a command does, or null when it says nothing about what is understood here.
  static Action ActionOf(std::string_view command) {
    struct Row {
      std::string_view command;
      Action action;
    };
    // By how many there are in a large scene.
    static constexpr std::array kActions{
        Row{"setAttr", &Reader::SetAttribute},
        Row{"createNode", &Reader::CreateNode},
        Row{"connectAttr", &Reader::Connect},
        Row{"rename", &Reader::Rename},
        Row{"parent", &Reader::Parent},
        Row{"select", &Reader::Select},
        Row{"disconnectAttr", &Reader::Disconnect},
        Row{"currentUnit", &Reader::CurrentUnit},
        Row{"file", &Reader::File},
    };
    const auto row = std::find_if(kActions.begin(), kActions.end(),
                                  [&](const Row& one) { return one.command == command; });
    return row == kActions.end() ? nullptr : row->action;
  }

  void ReadStatements(const std::function<void(std::size_t, std::size_t)>& progress) {
    constexpr std::size_t kProgressStep = std::size_t{1} << 20;
    std::size_t nextProgress = kProgressStep;
    StatementScanner scanner(data_.text);
    while (scanner.Next(statement_)) {
      const std::string_view text = statement_.text;
      const std::string_view command =
          text.substr(0, text::FindAny<' ', '\t', '\r', '\n', '"', '(', '/'>(text, 0));
      if (const Action action = ActionOf(command)) {
        isScene_ = true;
        TokenReader reader(text, data_.page);
        (this->*action)(reader);
      } else if (std::find(kPassedOver.begin(), kPassedOver.end(), command) != kPassedOver.end()) {
        isScene_ = true;
      } else {
        NoteUnknown(command);
      }
      if (progress && statement_.end >= nextProgress) {
        progress(statement_.end, data_.text.size());
        nextProgress = statement_.end + kProgressStep;
      }
    }
    data_.trailerBegin = scanner.Position();
    if (progress) progress(data_.text.size(), data_.text.size());
  }

  void RefuseUnlessScene() const {
    if (!isScene_) throw SceneError(name_ + ": not a Maya ASCII scene");
  }

  std::string Place(std::size_t offset) {
    return name_ + ":" + std::to_string(lines_.LineOf(offset)) + ": ";
  }

  void Note(const std::string& text) {
    if (data_.notes.size() < kMaxNotes) {
      data_.notes.push_back(Place(statement_.begin) + text);
    } else {
      ++notesLeftOut_;
    }
  }

  void NoteUnknown(std::string_view command) {
    constexpr std::size_t kLongestShown = 40;
    if (!isScene_ || unknown_.size() >= kMaxNotes) return;
    command = command.substr(0, kLongestShown);
    if (unknown_.insert(std::string(command)).second) {
      Note("\"" + std::string(command) + "\" is no command of a scene file and is passed over");
    }
  }

  /// The node that a statement means; notes when the name is not clear.
  ItemId Find(std::string_view path) { return FindPlace(path).item; }

  DagPlace FindPlace(std::string_view path) {
    if (path == "time1" || path == ":time1" || path == "|time1") return {kTimeItem};
    bool isAmbiguous = false;
    const DagPlace place = data_.FindPlace(path, &isAmbiguous);
    if (!isAmbiguous) return place;
    Note("more than one node is named \"" + std::string(path) + "\"; the statement is passed over");
    return {};
  }

  void CreateNode(TokenReader& reader) {
    const Words words = ReadWords(reader, {"-n", "-name", "-p", "-parent"});
    current_ = kNoItem;
    if (words.names.empty()) {
      Note("createNode names no type and is passed over");
      return;
    }
    const std::uint32_t type = data_.InternType(words.names.front());
    const TypeInfo& info = data_.types[type];
    ItemId parent = info.isTransform ? kWorldItem : kNoItem;
    if (const Token* const path = words.Find({"-p", "-parent"})) parent = FindParent(path->text);

    const Token* const given = words.Find({"-n", "-name"});
    std::string name = NameFrom(given != nullptr ? given->text : std::string_view());
    if (name.empty()) name = info.name + "1";
    // A shared node is there already, if it is one of every scene.
    if (words.Has({"-s", "-shared"})) {
      current_ = parent == kNoItem ? data_.FirstOfName(name) : data_.ChildOf(parent, name);
    }
    if (current_ != kNoItem) {
      data_.items[current_].isInFile = true;
    } else {
      current_ = data_.AddItem(name, type, parent);
    }
    if (info.nodeClass == NodeClass::kCurve) {
      CurveRecord& curve = data_.curves[current_];
      curve.declarationEnd = statement_.end;
      if (info.curveKind == 'A') curve.valueFactor = data_.radiansPerUnit;
      if (info.curveKind == 'L') curve.valueFactor = data_.centimetresPerUnit;
    }
  }

  /// A node's name as a statement gives it.
  std::string NameFrom(std::string_view text) const {
    if (!text.empty() && text[0] == ':') text.remove_prefix(1);
    std::string name(text);
    // What cannot be part of a name, as it would make paths that mean something else.
    for (std::size_t i = 0; i < name.size(); i += data_.page.Width(name, i)) {
      if (name[i] == '|' || name[i] == '.') name[i] = '_';
    }
    return name;
  }

  ItemId FindParent(std::string_view path) {
    bool isAmbiguous = false;
    const ItemId parent = data_.FindItem(path, &isAmbiguous);
    if (parent == kNoItem) {
      Note("the parent \"" + std::string(path) +
           "\" is not in the file; the world takes its place");
      return kWorldItem;
    }
    if (isAmbiguous) {
      Note("more than one node is named \"" + std::string(path) +
           "\"; the last becomes the parent");
    }
    data_.MakeDag(parent);
    return parent;
  }

  void SetAttribute(TokenReader& reader) {
    SetAttr set = ReadSetAttr(reader);
    const PlugName plug = SplitPlug(set.plug);
    const ItemId item = plug.node.empty() ? current_ : Find(plug.node);
    if (item == kNoItem) return;
    if (item == kTimeItem) {
      if (plug.attribute == "o" || plug.attribute == "outTime") SetStartTime(reader);
      return;
    }
    const NodeClass nodeClass = data_.TypeOf(item).nodeClass;
    if (nodeClass == NodeClass::kCurve) {
      SetCurveAttribute(item, plug.attribute, reader);
      return;
    }
    const auto range = FindPlug(nodeClass, plug.attribute);
    if (!range) return;
    const SetAttrValues values = ReadValues(reader);
    if (values.lock) set.lock = values.lock;
    if (set.lock && nodeClass == NodeClass::kOther) SetLock(item, *range, *set.lock);
    if (!values.words.empty()) SetValues({item, range->first}, range->count, values.words);
  }

  void SetStartTime(TokenReader& reader) {
    const SetAttrValues values = ReadValues(reader);
    const auto time = values.words.empty() ? std::nullopt : text::WholeReal(values.words.front());
    if (time && std::isfinite(*time)) data_.startTime = *time;
  }

  void SetLock(ItemId item, PlugRange range, bool isLocked) {
    if (range.first >= kChannelCount) return;
    const std::size_t bit = range.count == 1 ? range.first : kChannelCount + range.first / 3;
    const auto mask = static_cast<std::uint16_t>(1u << bit);
    std::uint16_t& locks = data_.items[item].locks;
    locks = static_cast<std::uint16_t>(isLocked ? locks | mask : locks & ~mask);
  }

  void SetValues(Plug first, std::uint32_t count, const std::vector<std::string_view>& words) {
    const bool isArray = first.code >= plug::kLinearElement;
    if (words.size() < count && !isArray) {
      NoteValue(first);
      return;
    }
    std::vector<StoredValue> read;
    const std::size_t given = std::min<std::size_t>(count, words.size());
    read.reserve(given);
    for (std::size_t i = 0; i < given; ++i) {
      const auto code = static_cast<PlugCode>(first.code + i);
      const auto value = ValueFrom(words[i], code);
      if (!value) {
        NoteValue(first);
        return;
      }
      read.push_back({first.item, code, *value});
    }
    data_.values.insert(data_.values.end(), read.begin(), read.end());
    MarkChannels(first);
  }

  void MarkChannels(Plug plug) {
    if (plug.code < kChannelCount) data_.items[plug.item].hasChannels = true;
  }

  std::optional<double> ValueFrom(std::string_view word, PlugCode code) const {
    if (code == plug::kSegmentScaleCompensate) {
      const auto flag = BooleanOf(word);
      return flag ? std::optional(*flag ? 1.0 : 0.0) : std::nullopt;
    }
    const auto number = text::WholeReal(word);
    if (!number) return std::nullopt;
    switch (UnitOf(code)) {
      case Unit::kLength:
        return *number * data_.centimetresPerUnit;
      case Unit::kAngle:
        return *number * data_.radiansPerUnit;
      case Unit::kPlain:
        break;
    }
    const bool isOrder = code == plug::kRotateOrder;
    if (isOrder && !(*number >= 0.0 && *number <= 5.0 && std::floor(*number) == *number)) {
      return std::nullopt;
    }
    return number;
  }

  void NoteValue(Plug plug) {
    // Other kinds of node have attributes of the same names that are none of ours.
    const TypeInfo& type = data_.TypeOf(plug.item);
    if (type.nodeClass == NodeClass::kOther && !type.isTransform) return;
    const char* const attribute = TransformAttributeName(plug.code);
    Note("a value of \"" + ShownName(data_.NameOf(plug.item)) + (*attribute != '\0' ? "." : "") +
         attribute + "\" is not understood and is passed over");
  }

  void SetCurveAttribute(ItemId item, std::string_view attribute, TokenReader& reader) {
    CurveRecord& record = data_.curves[item];
    const std::string_view name = attribute.substr(0, attribute.find('['));
    if (FindKeyAttribute(name)) {
      const Token next = reader.Peek();
      if (next.kind == Token::Kind::kEnd) return;  // a size alone
      if (next.IsFlag() && ReadValues(reader).words.empty()) return;
      KeyTable table;
      if (AddKeyStatement(statement_.text, data_.page, table)) {
        record.keyStatements.push_back({statement_.begin, statement_.end});
      } else {
        record.hasUnreadKeys = true;
        Note("keys of \"" + ShownName(data_.NameOf(item)) +
             "\" are not understood and are passed over");
      }
      return;
    }
    const SetAttrValues values = ReadValues(reader);
    if (values.words.empty()) return;
    const std::string_view word = values.words.front();
    const auto number = text::WholeReal(word);
    if (name == "wgt" || name == "weightedTangents") {
      record.curve.weighted = BooleanOf(word).value_or(record.curve.weighted);
    } else if (number && (name == "tan" || name == "tangentType")) {
      record.tangent = TangentOf(*number);
    } else if (number && (name == "pre" || name == "preInfinity")) {
      record.curve.before = InfinityOf(*number);
    } else if (number && (name == "pst" || name == "postInfinity")) {
      record.curve.after = InfinityOf(*number);
    }
  }

  static Infinity InfinityOf(double number) {
    for (const Infinity infinity :
         {Infinity::kLinear, Infinity::kCycle, Infinity::kCycleOffset, Infinity::kOscillate}) {
      if (number == static_cast<double>(infinity)) return infinity;
    }
    return Infinity::kConstant;
  }

  /// Both ends of a connection, as far as what comes in is understood.
  struct Ends {
    Plug source;
    std::uint32_t sourceCount = 1;
    Plug destination;
    std::uint32_t count = 0;  ///< of components at the destination; 0 when it does not matter
  };

  Ends FindEnds(const Words& words) {
    Ends ends;
    if (words.names.size() < 2) return ends;
    const PlugName destination = SplitPlug(words.names[1]);
    bool isAmbiguous = false;
    const ItemId item =
        destination.node.empty() ? current_ : data_.FindItem(destination.node, &isAmbiguous);
    if (item >= kMaxNodes) return ends;
    const auto range = FindPlug(data_.TypeOf(item).nodeClass, destination.attribute);
    if (!range) return ends;
    if (isAmbiguous) {
      Find(destination.node);
      return ends;
    }
    ends.destination.item = item;
    ends.destination.code = range->first;

    const PlugName source = SplitPlug(words.names[0]);
    ends.source.item = source.node.empty() ? current_ : Find(source.node);
    const bool isDriverOfCurve = data_.TypeOf(item).nodeClass == NodeClass::kCurve;
    if (ends.source.item == kNoItem || (ends.source.item == kTimeItem && !isDriverOfCurve)) {
      ends.source.item = data_.MissingItem(source.node);
    }
    if (ends.source.item < kMaxNodes) {
      const auto from = FindPlug(data_.TypeOf(ends.source.item).nodeClass, source.attribute);
      if (from) {
        ends.source.code = from->first;
        ends.sourceCount = from->count;
      }
    }
    // One number into what we know as three: the attribute is another of that name.
    const bool fits = ends.sourceCount == range->count;
    if (fits || ends.source.code == plug::kUnknown) MarkChannels(ends.destination);
    if (fits) MarkChannels(ends.source);
    if (!fits) ends.source.code = plug::kUnknown;
    ends.count = range->count;
    return ends;
  }

  void Connect(TokenReader& reader) {
    const Words words = ReadWords(reader, {"-l", "-lock", "-rd", "-referenceDest"});
    const Ends ends = FindEnds(words);
    for (std::uint32_t i = 0; i < ends.count; ++i) {
      const Plug to{ends.destination.item, ends.destination.code + i};
      if (ends.source.item == kTimeItem) {
        data_.connections.erase(to);  // a curve over time, as it is without a connection
      } else {
        data_.connections[to] = Component(ends, i);
      }
    }
    const Token* const lock = words.Find({"-l", "-lock"});
    if (ends.count > 0 && lock != nullptr && BooleanOf(lock->text).value_or(false) &&
        data_.TypeOf(ends.destination.item).nodeClass == NodeClass::kOther) {
      SetLock(ends.destination.item, {ends.destination.code, ends.count}, true);
    }
  }

  static Plug Component(const Ends& ends, std::uint32_t i) {
    const bool isKnown = ends.source.code != plug::kUnknown;
    return {ends.source.item, isKnown ? ends.source.code + i : plug::kUnknown};
  }

  void Disconnect(TokenReader& reader) {
    const Ends ends = FindEnds(ReadWords(reader, {}));
    for (std::uint32_t i = 0; i < ends.count; ++i) {
      const auto found = data_.connections.find({ends.destination.item, ends.destination.code + i});
      if (found != data_.connections.end() && found->second == Component(ends, i)) {
        data_.connections.erase(found);
      }
    }
  }

  void Select(TokenReader& reader) {
    const Words words = ReadWords(reader, {});
    current_ = words.names.empty() ? kNoItem : Find(words.names.front());
  }

  void Parent(TokenReader& reader) {
    Words words = ReadWords(reader, {});
    if (words.Has({"-rm", "-removeObject"})) {
      Note("\"parent -removeObject\" is not understood and is passed over");
      return;
    }
    // Shapes have no values of their own to keep a place by.
    const bool isRelative = words.Has({"-r", "-relative", "-s", "-shape"});
    ItemId parent = kWorldItem;
    if (!words.Has({"-w", "-world"})) {
      if (words.names.size() < 2) return;
      parent = Find(words.names.back());
      words.names.pop_back();
    }
    for (const std::string_view name : words.names) {
      const DagPlace place = FindPlace(name);
      const ItemId item = place.item;
      if (parent >= kMaxNodes || item >= kMaxNodes) {
        Note("\"" + std::string(name) + "\" or its parent is not in the file; nothing is parented");
        continue;
      }
      data_.MakeDag(parent);
      data_.MakeDag(item);
      if (words.Has({"-add", "-addObject"})) {
        data_.AddInstance(item, parent);
      } else {
        const std::uint32_t edge = data_.items[item].edge;
        const bool isMoved =
            data_.Reparent(place.edge == HashIndex::kNone ? edge : place.edge, parent);
        if (isMoved && !isRelative) {
          Note("\"" + std::string(name) +
               "\" keeps its local values under its new parent, not its place in the world");
        }
      }
    }
  }

  void Rename(TokenReader& reader) {
    // Nearly all give a node's identifier and no name.
    const Words words = ReadWords(reader, {});
    if (words.names.empty() || words.Has({"-uid", "-uuid"})) return;
    const bool isCurrent = words.names.size() == 1;
    const ItemId item = isCurrent ? current_ : Find(words.names.front());
    const std::string name = NameFrom(words.names.back());
    if (item < kMaxNodes && item != kWorldItem && !name.empty()) data_.Rename(item, name);
  }

  void CurrentUnit(TokenReader& reader) {
    const Words words = ReadWords(
        reader, {"-l", "-linear", "-a", "-angle", "-t", "-time", "-ua", "-updateAnimation"});
    if (const Token* const unit = words.Find({"-t", "-time"})) {
      if (const auto rate = FramesPerSecondOf(unit->text)) {
        data_.timeUnit = unit->text;
        data_.framesPerSecond = *rate;
      } else {
        NoteUnit("time", unit->text);
      }
    }
    SetUnit(words.Find({"-l", "-linear"}), "linear", CentimetresIn, data_.linearUnit,
            data_.centimetresPerUnit);
    SetUnit(words.Find({"-a", "-angle"}), "angular", RadiansIn, data_.angularUnit,
            data_.radiansPerUnit);
  }

  void SetUnit(const Token* unit, const char* kind, std::optional<double> (*find)(std::string_view),
               std::string& name, double& size) {
    if (unit == nullptr) return;
    if (const auto known = find(unit->text)) {
      name = unit->text;
      size = *known;
    } else {
      NoteUnit(kind, unit->text);
    }
  }

  void NoteUnit(const std::string& kind, std::string_view unit) {
    Note("the " + kind + " unit \"" + std::string(unit) + "\" is not known and is passed over");
  }

  void File(TokenReader& reader) {
    const Words words =
        ReadWords(reader, {"-rdi", "-referenceDepthInfo", "-ns", "-namespace", "-rfn",
                           "-referenceNode", "-op", "-options", "-typ", "-type", "-dr",
                           "-deferReference", "-rpr", "-renamingPrefix"});
    const bool isReference = words.Has({"-r", "-reference", "-rdi", "-referenceDepthInfo"});
    if (!isReference || words.names.empty()) return;
    std::string file(words.names.back());
    if (knownReferences_.insert(file).second) data_.references.push_back(std::move(file));
  }

  const std::string name_;
  SceneData data_;
  LineCounter lines_;
  Statement statement_;
  ItemId current_ = kNoItem;
  bool isScene_ = false;
  std::size_t notesLeftOut_ = 0;
  std::set<std::string> unknown_;
  std::set<std::string> knownReferences_;
};

}  // namespace

SceneData ReadScene(std::string text, const std::string& name,
                    const std::function<void(std::size_t, std::size_t)>& progress) {
  return Reader(std::move(text), name).Read(progress);
}

}  // namespace lipvane::standalone
