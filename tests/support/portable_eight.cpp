#include "numbers/platform.hpp"

#include "numbers/lanes.hpp"
#include "tests/support/portable_lanes.hpp"

namespace co2_properties {
namespace {

using V = Lanes8;

}  // namespace
}  // namespace co2_properties

#include "api/batch/blocks.hpp"

namespace co2_properties::test {

constexpr BatchEntries portable_eight = block_entries;

}  // namespace co2_properties::test
