// Models in JSON.

#include "ImportFixture.h"
#include "modModelStore.h"

#include <string>

#include <gmock/gmock.h>

namespace strutwright {
namespace {

using ModelJsonTest = ImportTest;

const std::string Member = R"("members":[{"member":1,"i":1,"j":1,"e":200,"a":1000}])";

std::string WithNode(const std::string& node) { return "{\"nodes\":[" + node + "]," + Member + "}"; }

TEST_F(ModelJsonTest, MayHaveItsKeysInAnyOrderAndOthers) {
  Import(R"({"by":{"nodes":[1,{"x":2}]},"members":[{"a":4,"e":3,"j":1,"i":1,"name":"tie"}],
             "nodes":[{"tags":["a",[]],"y":2.5,"x":-1e-1}],"capacity":30,"units":{"x":"m"}})");
  EXPECT_EQ(model.capacity, 30);
  EXPECT_EQ(model.nodes(1, NodeX), -0.1F);
  EXPECT_EQ(model.nodes(1, NodeY), 2.5F);
  EXPECT_EQ(model.members(1, MemberA), 4);
  EXPECT_EQ(model.members(1, MemberPS), 0);
}

TEST_F(ModelJsonTest, NamesAValueThatIsNoNumber) {
  EXPECT_EQ(FaultOf(WithNode(R"({"x":null,"y":0})")), "\"x\" of node 1 is null instead of a number");
  EXPECT_EQ(FaultOf(WithNode(R"({"x":0,"y":"2"})")), "\"y\" of node 1 is \"2\" instead of a number");
  EXPECT_EQ(FaultOf(WithNode(R"({"x":0,"y":[2]})")), "\"y\" of node 1 is not a number");
  EXPECT_EQ(FaultOf(WithNode(R"({"x":0,"y":1e39})")), "\"y\" of node 1 is 1e39, which is too large");
  EXPECT_EQ(FaultOf(WithNode(R"({"x":0,"y":1e999})")), "node 1: a number is too large");
  EXPECT_EQ(FaultOf(WithNode(R"(3)")), "node 1 is 3");
  EXPECT_EQ(FaultOf(WithNode(R"([])")), "node 1 is a list");
}

TEST_F(ModelJsonTest, NamesTheLineWhereItIsNoJson) {
  EXPECT_EQ(FaultOf("{\"nodes\":\n[{\"x\":NaN}]}"), "Line 2: this is no JSON");
  EXPECT_EQ(FaultOf("{\"name\":\"\xFF\"}"), "Line 1: this is no JSON");
  EXPECT_EQ(FaultOf("{\"nodes\":\n["), "Line 2: the JSON ends in the middle");
  EXPECT_EQ(FaultOf(WithNode(R"({"x":0,"y":0})") + "\n}"), "Line 2: this is no JSON");
}

TEST_F(ModelJsonTest, NamesWhatIsMissing) {
  EXPECT_EQ(FaultOf("{}"), "the list \"nodes\" is missing");
  EXPECT_EQ(FaultOf("{\"nodes\":[]}"), "the list \"members\" is missing");
  EXPECT_EQ(FaultOf("{\"nodes\":{}}"), "\"nodes\" is an object instead of a list");
  EXPECT_EQ(FaultOf("{\"nodes\":7}"), "\"nodes\" is 7 instead of a list");
  EXPECT_EQ(FaultOf(WithNode(R"({"x":0})")), "node 1 has no \"y\"");
  EXPECT_EQ(FaultOf(R"({"nodes":[],"members":[{"i":1,"j":2,"e":3}]})"), "member 1 has no \"a\"");
}

TEST_F(ModelJsonTest, NamesWhatIsOutOfOrder) {
  EXPECT_EQ(FaultOf(WithNode(R"({"node":2,"x":0,"y":0})")), "node 2 stands where node 1 is expected");
  EXPECT_EQ(FaultOf(R"({"nodes":[],"nodes":[]})"), "the list \"nodes\" stands there twice");
  EXPECT_EQ(FaultOf(R"({"version":2})"), "this is version 2 of the form; this program reads version 1");
  EXPECT_EQ(FaultOf(R"({"capacity":-1})"), "\"capacity\" is not a number from 0 to 32767");
  EXPECT_EQ(FaultOf("[1]", "a.json"), "a model in JSON begins with \"{\", not with \"[\"");
  EXPECT_EQ(FaultOf("null", "a.json"), "a model in JSON begins with \"{\"");
}

TEST_F(ModelJsonTest, MayNestAsDeepAsItLikes) {
  const std::string deep = std::string(300000, '[') + std::string(300000, ']');
  Import("{\"other\":" + deep + "," + WithNode(R"({"x":1,"y":0})").substr(1));
  EXPECT_EQ(model.nodes(1, NodeX), 1);
}

TEST_F(ModelJsonTest, EndsAtTheFirstNodeTooMany) {
  std::string nodes = R"({"x":0,"y":0})";
  for (int n = 1; n < 16384; ++n) nodes += R"(,{"x":0,"y":0})";
  EXPECT_EQ(FaultOf(WithNode(nodes)), "a model has at most 16383 nodes");
}

} // namespace
} // namespace strutwright
