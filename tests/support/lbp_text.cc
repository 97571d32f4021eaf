#include "tests/support/lbp_text.h"

#include <sstream>

namespace lipvane::test {

std::string LbpText(const std::vector<std::string>& bones,
                    const std::vector<std::vector<BoneLine>>& poses) {
  std::ostringstream out;
  out.precision(17);
  out << "2\n1\nEat\n";
  for (int phoneme = 0; phoneme < 43; ++phoneme)
    out << "P" << phoneme << " 0.5\n";
  out << bones.size() << '\n';
  for (const std::string& bone : bones)
    out << bone << " -> parent\n";
  out << "head_bone=h\nleft_eye_bone=undefined\nright_eye_bone=undefined\n" << poses.size() << '\n';
  for (const auto& pose : poses) {
    for (const BoneLine& bone : pose) {
      out << "1 0 0 0 0 1 0 0 0 0 1 0 0 0 0 1";
      for (const double value : bone.translation)
        out << ' ' << value;
      out << " 1 1 1";
      for (const double value : bone.rotation)
        out << ' ' << value;
      out << '\n';
    }
  }
  return out.str();
}

}  // namespace lipvane::test
