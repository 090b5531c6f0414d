#include "tablegen/fit/tp_curves.hpp"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

namespace co2_properties::tablegen {
namespace {

std::string read(const std::string& name) {
  std::ifstream stream(std::string(TABLEGEN_SOURCE_DIR "/eos/tables/") + name, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

TEST(TpCurves, AreThoseOfTheElementTable) {
  const std::string elements = read("elements.cpp");
  ASSERT_FALSE(elements.empty());
  EXPECT_NE(read("tp_curves.cpp").find("Input digest " + tp_curves_digest(elements) + "."),
            std::string::npos)
      << "the elements have changed: run `tablegen tp_curves`";
}

}  // namespace
}  // namespace co2_properties::tablegen
