#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "tests/contract/host_under_test.h"
#include "tests/support/lbp_text.h"
#include "tests/support/temporary_folder.h"

namespace lipvane::test {

/// What both commands do in any host; each host takes the suite on where it is made.
class Contract : public testing::TestWithParam<HostMaker> {
 protected:
  std::unique_ptr<HostUnderTest> Make(const SceneDescription& scene) { return GetParam()(scene); }
  std::string FileOf(const std::string& name) const { return folder_.Path(name); }
  std::string WriteLbp(const std::vector<std::string>& bones,
                       const std::vector<std::vector<BoneLine>>& poses) {
    const std::string fileName = FileOf("given.lbp");
    std::ofstream(fileName) << LbpText(bones, poses);
    return fileName;
  }

 private:
  TemporaryFolder folder_;
};

}  // namespace lipvane::test
