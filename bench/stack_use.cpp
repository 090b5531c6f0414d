// How much of a thread's stack the entries take: each runs on a stack that was painted before, with
// every output and derivative, through states in one phase, near the critical point and in two.

#include <fmt/format.h>
#include <pthread.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <type_traits>
#include <vector>

#include "co2_properties.hpp"

namespace co2_properties {
namespace {

constexpr std::size_t count = 64;
using Values = std::array<double, count>;

struct Inputs {
  Values temp, dens, pres, inte, enth, entr;
};
Inputs in;
std::array<std::int32_t, count> codes;

template <class Set, class Member>
Set filled(std::vector<Values>& room) {
  std::array<Member, sizeof(Set) / sizeof(Member)> members;
  room.resize(members.size());
  for (std::size_t i = 0; i < members.size(); ++i) {
    if constexpr (std::is_pointer_v<Member>) {
      members[i] = room[i].data();
    } else {
      members[i] = room[i];
    }
  }
  return std::bit_cast<Set>(members);
}
std::vector<Values> room[2];

template <auto entry>
void* one_by_one(void* /*unused*/) {
  static const auto out = filled<OutputSet, double*>(room[0]);
  static const auto derivatives = filled<DerivativeSet, double*>(room[1]);
  for (std::size_t i = 0; i < count; ++i) entry(i, out, derivatives);
  return nullptr;
}

template <auto entry>
void* batch(void* /*unused*/) {
  static const auto out = filled<BatchOutputSet, StridedSpan<double>>(room[0]);
  static const auto derivatives = filled<BatchDerivativeSet, StridedSpan<double>>(room[1]);
  entry(out, derivatives);
  return nullptr;
}

/// Bytes that a thread changes on its stack.
std::ptrdiff_t painted_over(void* (*const run)(void*)) {
  constexpr std::size_t size = std::size_t{1} << 20;
  constexpr unsigned char paint = 0xA5;
  alignas(4096) static std::array<unsigned char, size> stack;
  stack.fill(paint);
  pthread_attr_t attributes;
  pthread_t thread;
  pthread_attr_init(&attributes);
  pthread_attr_setstack(&attributes, stack.data(), size);
  pthread_create(&thread, &attributes, run, nullptr);
  pthread_join(thread, nullptr);
  pthread_attr_destroy(&attributes);
  return stack.end() - std::find_if(stack.begin(), stack.end(),
                                    [](const unsigned char byte) { return byte != paint; });
}

#define REPORT(entry, first, second)                                        \
  report(#entry, &one_by_one<[](const std::size_t i, const auto&... sets) { \
           co2_##entry(in.first[i], in.second[i], codes[i], sets...);       \
         }>,                                                                \
         &batch<[](const auto&... sets) {                                   \
           co2_##entry##_batch(in.first, in.second, codes, sets...);        \
         }>)

void report_all() {
  const std::ptrdiff_t thread = painted_over([](void*) -> void* { return nullptr; });
  const auto report = [thread](const char* const name, void* (*const one)(void*),
                               void* (*const many)(void*)) {
    fmt::print("co2_{}{:8}{:8}\n", name, painted_over(one) - thread, painted_over(many) - thread);
  };
  fmt::print("bytes   single   batch\n");
  REPORT(td, temp, dens);
  REPORT(tp, temp, pres);
  REPORT(ph, pres, enth);
  REPORT(ps, pres, entr);
  REPORT(du, dens, inte);
  REPORT(dh, dens, enth);
  REPORT(ds, dens, entr);
  REPORT(dp, dens, pres);
  REPORT(hs, enth, entr);
  REPORT(pu, pres, inte);
  REPORT(ts, temp, entr);
}

}  // namespace
}  // namespace co2_properties

int main() {
  using namespace co2_properties;
  constexpr std::array temps = {270.0, 304.2, 320.0, 290.0};
  constexpr std::array densities = {30.0, 470.0, 800.0, 400.0};
  for (std::size_t i = 0; i < count; ++i) {
    in.temp[i] = temps[i % 4];
    in.dens[i] = densities[i / 4 % 4];
  }
  co2_td_batch(in.temp, in.dens, codes,
               {.pres = in.pres, .inte = in.inte, .enth = in.enth, .entr = in.entr});
  report_all();
}
