#include "Calculix.h"

#include "modModelStore.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

#include <unistd.h>

namespace strutwright {

namespace {

/// A folder that goes with all it holds.
class JobFolder {
 public:
  JobFolder() : Path(std::filesystem::temp_directory_path() / ("strutwright-ccx-" + std::to_string(getpid()))) {
    std::filesystem::create_directories(Path);
  }
  ~JobFolder() { std::filesystem::remove_all(Path); }
  JobFolder(const JobFolder&) = delete;
  JobFolder& operator=(const JobFolder&) = delete;

  const std::filesystem::path Path;
};

void WriteMesh(std::ostream& out) {
  out << "*NODE, NSET=ALL\n";
  for (int n = 1; n <= NodeCount; ++n) out << n << "," << NodeTable(n, NodeX) << "," << NodeTable(n, NodeY) << ",0\n";
  out << "*ELEMENT, TYPE=T3D2, ELSET=BARS\n";
  for (int m = 1; m <= MemberCount; ++m) {
    out << m << "," << MemberTable(m, MemberNodeI) << "," << MemberTable(m, MemberNodeJ) << "\n";
  }
  out << "*MATERIAL, NAME=BAR\n*ELASTIC\n"
      << MemberTable(1, MemberE) * 1e6F << ",0.3\n*SOLID SECTION, ELSET=BARS, MATERIAL=BAR\n"
      << MemberTable(1, MemberA) * 1e-6F << "\n";
}

void WriteSupportsAndLoads(std::ostream& out) {
  out << "*BOUNDARY\nALL,3,3\n";
  for (int n = 1; n <= NodeCount; ++n) {
    const float code = NodeTable(n, NodeSupport);
    if (code != 0 && code != 1) out << n << ",1,1\n";
    if (code != 0 && code != 2) out << n << ",2,2\n";
  }
  out << "*STEP\n*STATIC\n*CLOAD\n";
  for (int n = 1; n <= NodeCount; ++n) {
    if (NodeTable(n, NodeForceX) != 0) out << n << ",1," << NodeTable(n, NodeForceX) << "\n";
    if (NodeTable(n, NodeForceY) != 0) out << n << ",2," << NodeTable(n, NodeForceY) << "\n";
  }
  out << "*NODE PRINT,NSET=ALL\nU\n*END STEP\n";
}

} // namespace

bool HaveCalculix() { return std::system("command -v ccx >/dev/null") == 0; }

void AnalyseWithCalculix() {
  const JobFolder folder;
  {
    std::ofstream input(folder.Path / "truss.inp");
    WriteMesh(input);
    WriteSupportsAndLoads(input);
  }
  const std::string command = "cd '" + folder.Path.string() + "' && ccx -i truss >log 2>&1 && [ -s truss.dat ]";
  if (std::system(command.c_str()) != 0) throw std::runtime_error("CalculiX found no solution");
}

} // namespace strutwright
