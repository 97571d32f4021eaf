#include "lipvane/plugin/registration.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace lipvane::plugin {
namespace {

/// Notes what a plug-in does while it is loaded and unloaded; refuses the names it is told to.
class Loader : public host::PluginLoader {
 public:
  std::vector<std::string> calls;
  std::vector<std::string> refused;

  std::unique_ptr<host::CommandRegistry> OpenRegistry(const std::string& vendor,
                                                      const std::string& version,
                                                      const std::string& api) override {
    calls.push_back("open " + vendor + "/" + version + "/" + api);
    return std::make_unique<Registry>(*this);
  }

 private:
  class Registry : public host::CommandRegistry {
   public:
    explicit Registry(Loader& loader) : loader_(loader) {}
    host::Status RegisterCommand(const std::string& name, host::CommandCreator creator,
                                 host::SyntaxFunction syntax) override {
      EXPECT_NE(creator, nullptr);
      EXPECT_NE(syntax, nullptr);
      return loader_.Note("register " + name, name);
    }
    host::Status DeregisterCommand(const std::string& name) override {
      return loader_.Note("deregister " + name, name);
    }

   private:
    Loader& loader_;
  };

  host::Status Note(const std::string& call, const std::string& name) {
    calls.push_back(call);
    for (const std::string& other : refused) {
      if (other == name) return host::StatusCode::kFailure;
    }
    return {};
  }
};

TEST(Registration, RegistersBothWhateverBecomesOfTheFirst) {
  Loader loader;
  loader.refused = {"demBonesExportPoses"};
  EXPECT_TRUE(InitializePlugin(loader).ok());
  EXPECT_EQ(loader.calls,
            (std::vector<std::string>{"open Tamsk Entertainment/4.0/Any",
                                      "register demBonesExportPoses", "register facialAnim"}));
  loader.refused = {"facialAnim"};
  EXPECT_FALSE(InitializePlugin(loader).ok());
}

TEST(Registration, DeregistersFourNamesOfWhichTwoFail) {
  Loader loader;
  loader.refused = {"demBonesImportPoses", "demBonesGenerateAnimation"};
  EXPECT_TRUE(UninitializePlugin(loader).ok());
  EXPECT_EQ(loader.calls, (std::vector<std::string>{
                              "open Unknown/Unknown/Any", "deregister demBonesExportPoses",
                              "deregister demBonesImportPoses",
                              "deregister demBonesGenerateAnimation", "deregister facialAnim"}));
  loader.refused = {"facialAnim"};
  EXPECT_FALSE(UninitializePlugin(loader).ok());
}

}  // namespace
}  // namespace lipvane::plugin
