#pragma once
// The processes among which the pipe is divided, in order from left to right. There are two
// definitions of this class: ranks_mpi.cpp, and ranks_alone.cpp for one process.

#include <cstddef>
#include <cstdint>
#include <span>
#include <type_traits>
#include <vector>

namespace flow {

class Ranks {
 public:
  /// Starts and ends message passing.
  Ranks();
  ~Ranks();
  Ranks(const Ranks&) = delete;
  Ranks& operator=(const Ranks&) = delete;

  [[nodiscard]] int rank() const;
  [[nodiscard]] int size() const;
  [[nodiscard]] bool first() const { return rank() == 0; }
  [[nodiscard]] bool last() const { return rank() + 1 == size(); }

  /// Exchanges cells with both neighbours; what would come from beyond the ends of the row is left
  /// alone, or comes from its other end if the row is a ring. All spans have one length.
  template <class Cell>
  void exchange(std::span<const Cell> to_left, std::span<Cell> from_left,
                std::span<const Cell> to_right, std::span<Cell> from_right, bool ring) const {
    static_assert(std::is_trivially_copyable_v<Cell>);
    exchange_bytes(std::as_bytes(to_left), std::as_writable_bytes(from_left),
                   std::as_bytes(to_right), std::as_writable_bytes(from_right), ring);
  }

  /// All items in the order of the ranks, at the first rank; elsewhere nothing.
  template <class Item>
  [[nodiscard]] std::vector<Item> gather(const std::span<const Item> own) const {
    static_assert(std::is_trivially_copyable_v<Item>);
    const std::vector<int> bytes = gather_sizes(own.size_bytes());
    std::size_t all = 0;
    for (const int count : bytes) all += static_cast<std::size_t>(count);
    std::vector<Item> items(all / sizeof(Item));
    gather_bytes(std::as_bytes(own), bytes, std::as_writable_bytes(std::span(items)));
    return items;
  }

  /// Exact whatever the order, unlike a sum.
  [[nodiscard]] double largest(double own) const;

  /// Ends all processes.
  [[noreturn]] void abort(int status) const;

 private:
  void exchange_bytes(std::span<const std::byte> to_left, std::span<std::byte> from_left,
                      std::span<const std::byte> to_right, std::span<std::byte> from_right,
                      bool ring) const;
  [[nodiscard]] std::vector<int> gather_sizes(std::size_t bytes) const;
  void gather_bytes(std::span<const std::byte> own, const std::vector<int>& sizes,
                    std::span<std::byte> all) const;
};

}  // namespace flow
