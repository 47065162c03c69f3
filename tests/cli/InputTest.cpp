// What the commands read: models and their csv, from files and from standard input.

#include "CliTest.h"
#include "NativeFileSystem.h"

#include <filesystem>
#include <string>

#include <nlohmann/json.hpp>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

namespace fs = std::filesystem;
using nlohmann::json;
using testing::HasSubstr;

class InputTest : public CliTest {
 protected:
  InputTest() {
    Run({"show", "--format", "csv", Reference("triangle")});
    csv = out;
    Run({"analyse", Reference("triangle")});
    results = out.substr(out.find(": "));
  }

  std::string csv;     ///< of the triangle
  std::string results; ///< of its analysis, behind the file's name
  const std::string noModel = ": The file is neither a model nor a csv of one\n";
};

TEST_F(InputTest, MayBeACsvToAnalyse) {
  PutFile(folder.Path("nodes.csv"), csv);
  EXPECT_EQ(Run({"analyse", folder.Path("nodes.csv")}), 0) << err;
  EXPECT_EQ(out, folder.Path("nodes.csv") + results);
  EXPECT_EQ(err, "");
}

TEST_F(InputTest, MayBeACsvToShow) {
  PutFile(folder.Path("nodes.csv"), "\xEF\xBB\xBF" + csv);
  EXPECT_EQ(Run({"show", "--format", "csv", folder.Path("nodes.csv")}), 0) << err;
  EXPECT_EQ(out, csv);
}

TEST_F(InputTest, MayBeAModelToMakeAModelOf) {
  EXPECT_EQ(Run({"make", Reference("triangle"), folder.Path("out.stw")}), 0) << err;
  EXPECT_EQ(FileBytes(folder.Path("out.stw")), FileBytes(Reference("triangle")));
}

TEST_F(InputTest, IsStandardInputUnderTheNameOfADash) {
  for (const std::string& model : {csv, FileBytes(Reference("triangle"))}) {
    in = model;
    EXPECT_EQ(Run({"analyse", "-"}), 0) << err;
    EXPECT_EQ(out, "-" + results);
    EXPECT_EQ(Run({"show", "-", "--format", "csv"}), 0) << err;
    EXPECT_EQ(out, csv);
    EXPECT_EQ(Run({"make", "-", folder.Path("out.stw")}), 0) << err;
    EXPECT_EQ(FileBytes(folder.Path("out.stw")), FileBytes(Reference("triangle")));
    fs::remove(folder.Path("out.stw"));
  }
}

TEST_F(InputTest, GoesToStandardOutputUnderTheNameOfADash) {
  in = csv;
  EXPECT_EQ(Run({"make", "-", "-"}), 0) << err;
  EXPECT_EQ(out, FileBytes(Reference("triangle")));
  EXPECT_FALSE(fs::exists("-"));
}

TEST_F(InputTest, IsOneOfSeveralModels) {
  in = csv;
  EXPECT_EQ(Run({"analyse", "--picture", folder.Path("p.svg"), Reference("triangle"), "-"}), 0) << err;
  EXPECT_TRUE(fs::exists(folder.Path("p-stdin.svg")));
}

TEST_F(InputTest, NamesTheLineOfACsvThatIsWrong) {
  PutFile(folder.Path("bad.csv"), "JOINTS,x(m),y(m),ForceX (kN),ForceY (kN),Support\n1,0,zero,0,0,3\n");
  for (const char* command : {"analyse", "show"}) {
    EXPECT_EQ(Run({command, folder.Path("bad.csv")}), 2);
    EXPECT_THAT(err, HasSubstr("bad.csv: Line 2: \"zero\" in column \"y(m)\" is not a number\n"));
  }
}

TEST_F(InputTest, IsNamedForWhatItIsWhereItIsNeither) {
  const std::string picture = "\x89PNG\r\n\x1A\n" + std::string("\0\0\0\rIHDR", 8);
  const std::string page = "Results\nJOINTS,x(m)\n";
  for (const std::string& bytes : {std::string(), picture, page, std::string("1,0,0,0,0,3\n"), std::string("\0\1", 2),
                                   std::string("\x14\0\xFF\xFF\0\0", 6), std::string("\x14\0\x9\0\x9\0abcd", 10)}) {
    PutFile(folder.Path("odd"), bytes);
    for (const char* command : {"analyse", "show"}) {
      EXPECT_EQ(Run({command, folder.Path("odd")}), 2) << bytes;
      EXPECT_THAT(err, HasSubstr("odd" + noModel)) << bytes;
    }
  }
}

TEST_F(InputTest, IsNoModelForMakeEitherWhereItIsNoText) {
  PutFile(folder.Path("odd"), std::string("\x89PNG\r\n\x1A\n\0\0", 10));
  EXPECT_EQ(Run({"make", folder.Path("odd"), folder.Path("out.stw")}), 2);
  EXPECT_EQ(err, folder.Path("odd") + noModel);
  EXPECT_FALSE(fs::exists(folder.Path("out.stw")));
}

TEST_F(InputTest, MayBeADamagedModel) {
  in = FileBytes(Reference("triangle")).substr(0, 200);
  EXPECT_NE(Run({"analyse", "--format", "json", "-"}), 2);
  EXPECT_THAT(json::parse(out)["messages"][0]["text"], HasSubstr("Only 48 of its 64 values are there"));
}

TEST_F(InputTest, EndsSomewhere) {
  const std::string large = TooLargeFile();
  EXPECT_EQ(Run({"analyse", large}), 2);
  EXPECT_THAT(err, HasSubstr(large + ": The file is larger than any model\n"));
  in.assign((std::size_t{64} << 20) + 1, ' ');
  EXPECT_EQ(Run({"show", "-"}), 2);
  EXPECT_THAT(err, HasSubstr("-: The file is larger than any model\n"));
}

class OutputNamesTest : public CliTest {
 protected:
  /// Models of one name in folders of their own.
  std::string Bridge(const std::string& parent, const std::string& name = "bridge") {
    fs::create_directory(folder.Path(parent));
    const std::string path = folder.Path(parent + "/" + name + ".stw");
    fs::copy(Reference("triangle"), path);
    return path;
  }
};

TEST_F(OutputNamesTest, AreNumberedWhereModelsHaveOneBaseName) {
  const std::string first = Bridge("a");
  const std::string second = Bridge("b");
  const std::string third = Bridge("c");
  EXPECT_EQ(
      Run({"analyse", "--picture", folder.Path("p.svg"), "--report", folder.Path("r.html"), first, second, third}), 0);
  for (const char* name : {"p-bridge.svg", "p-bridge-2.svg", "p-bridge-3.svg", "r-bridge.html", "r-bridge-2.html"}) {
    EXPECT_TRUE(fs::exists(folder.Path(name))) << name;
  }
  EXPECT_THAT(err, testing::StartsWith(second + ": The picture is " + folder.Path("p-bridge-2.svg") +
                                       ", because another model's has its name\n" + second + ": The report is " +
                                       folder.Path("r-bridge-2.html") + ", because another model's has its name\n"));
}

TEST_F(OutputNamesTest, AreNumberedWhereOnlyTheCaseOfLettersDiffers) {
  EXPECT_EQ(Run({"analyse", "--picture", folder.Path("p.svg"), Bridge("a"), Bridge("b", "Bridge")}), 0);
  NativeFileSystem disk;
  EXPECT_THAT(disk.Names(folder.Root()),
              testing::UnorderedElementsAre("a", "b", "p-bridge.svg", "p-Bridge-2.svg")); // the case of letters matters
}

TEST_F(OutputNamesTest, AreTheExpectedOnesWhereTheyDiffer) {
  fs::copy(Reference("triangle"), folder.Path("bridge-2.stw"));
  EXPECT_EQ(Run({"analyse", "--picture", folder.Path("p.svg"), folder.Path("bridge-2.stw"), Bridge("a"), Bridge("b")}),
            0);
  for (const char* name : {"p-bridge-2.svg", "p-bridge.svg", "p-bridge-3.svg"}) {
    EXPECT_TRUE(fs::exists(folder.Path(name))) << name;
  }
}

TEST_F(OutputNamesTest, OfAPictureCanNotBeStandardOutput) {
  EXPECT_EQ(Run({"analyse", "--picture", "-", Reference("triangle")}), 2);
  EXPECT_THAT(err, HasSubstr("standard output bears the results"));
}

TEST_F(OutputNamesTest, OfAPictureCanNotBeThatOfAModel) {
  const std::string model = Bridge("a");
  const auto size = fs::file_size(model);
  EXPECT_EQ(Run({"analyse", "--picture", model, model}), 2);
  EXPECT_THAT(err, HasSubstr("a picture would take the place of a model: choose .png, .svg or .bmp"));
  EXPECT_EQ(fs::file_size(model), size);
}

} // namespace
} // namespace strutwright
