#include <algorithm>

#include "lipvane/host/command.h"
#include "lipvane/plugin/registration.h"
#include "tests/contract/host_under_test.h"

namespace lipvane::test {
namespace {

struct Entry {
  std::string name;
  host::CommandCreator creator;
};

class Registry : public host::CommandRegistry {
 public:
  explicit Registry(std::vector<Entry>& entries) : entries_(entries) {}
  host::Status RegisterCommand(const std::string& name, host::CommandCreator creator,
                               host::SyntaxFunction /*syntax*/) override {
    entries_.push_back({name, creator});
    return {};
  }
  host::Status DeregisterCommand(const std::string& /*name*/) override { return {}; }

 private:
  std::vector<Entry>& entries_;
};

class Loader : public host::PluginLoader {
 public:
  explicit Loader(std::vector<Entry>& entries) : entries_(entries) {}
  std::unique_ptr<host::CommandRegistry> OpenRegistry(const std::string& /*vendor*/,
                                                      const std::string& /*version*/,
                                                      const std::string& /*api*/) override {
    return std::make_unique<Registry>(entries_);
  }

 private:
  std::vector<Entry>& entries_;
};

class RecordingHostUnderTest : public HostUnderTest {
 public:
  explicit RecordingHostUnderTest(const SceneDescription& scene) : host_(scene) {
    Loader loader(commands_);
    plugin::InitializePlugin(loader);
  }

  bool Run(const std::string& command, const std::vector<std::string>& words) override {
    const auto entry = std::find_if(commands_.begin(), commands_.end(),
                                    [&](const Entry& e) { return e.name == command; });
    return entry->creator(host_)->DoIt(Words(words)).ok();
  }
  std::vector<std::string> Commands() const override {
    std::vector<std::string> names;
    for (const Entry& entry : commands_)
      names.push_back(entry.name);
    return names;
  }
  std::vector<Shown> AllShown() const override { return host_.shown; }
  std::vector<std::string> Selection() const override { return host_.selection; }
  double CurrentTime() const override { return host_.currentTime; }
  std::map<std::string, std::map<double, double>> Curves() const override { return host_.curves; }

 private:
  RecordingHost host_;
  std::vector<Entry> commands_;
};

}  // namespace

HostMaker RecordingHostMaker() {
  return {"Recording", [](const SceneDescription& scene) {
            return std::make_unique<RecordingHostUnderTest>(scene);
          }};
}

}  // namespace lipvane::test
