#include "lipvane/scene/dag_search.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "tests/support/recording_host.h"

namespace lipvane::scene {
namespace {

test::SceneDescription ThreeJaws() {
  test::SceneDescription scene;
  for (const char* path : {"|a", "|a|jaw", "|b", "|b|jaw", "|c", "|c|jaw"}) {
    scene.emplace_back();
    scene.back().path = path;
  }
  return scene;
}

TEST(DagSearch, TellsOfUnreadableNodesWhereTheyStandAndAgainForEachName) {
  test::RecordingHost host(ThreeJaws());
  // Calls: the iterator, then a path and a node for the world and each node.
  host.FailCall(1 + 2 * 4);  // the path of |b|jaw
  const DagSearch search(host, {"jaw", "c"});
  ASSERT_TRUE(search.status().ok());
  std::vector<std::string> told;
  const auto visit = [&](const host::DagPath& path, const host::Node& node) {
    host::Node transform;
    host.TransformOf(path, transform);
    told.push_back(host.NodeName(host.ParentOf(node, 0)) + " after " +
                   std::to_string(host.shown.size()));
  };
  EXPECT_TRUE(search.ForEach("jaw", visit));
  EXPECT_EQ(told, (std::vector<std::string>{"a after 0", "c after 1"}));
  EXPECT_TRUE(search.ForEach("c", visit));
  EXPECT_EQ(told.back(), "world after 2");
  EXPECT_FALSE(search.ForEach("Jaw", visit));
  EXPECT_EQ(host.shown,
            std::vector<test::Shown>(
                3, {"diagnostic", "(kFailure): Unexpected Internal Failure", "MItDag::getPath"}));
}

TEST(DagSearch, RefusesWhatWouldGrowWithTheSquareOfTheNames) {
  test::SceneDescription scene;
  for (int i = 0; i < 1025; ++i) {
    scene.emplace_back().path = "|" + std::to_string(i);
    scene.emplace_back().path = "|" + std::to_string(i) + "|jaw";
  }
  test::RecordingHost host(scene);
  const std::vector<std::string> names(1023, "jaw");
  EXPECT_TRUE(DagSearch(host, names).status().ok());
  EXPECT_THROW(DagSearch(host, std::vector<std::string>(1024, "jaw")), std::length_error);
}

}  // namespace
}  // namespace lipvane::scene
