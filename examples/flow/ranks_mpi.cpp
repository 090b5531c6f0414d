// Processes of MPI. An error inside MPI ends all of them, as is the default there.

#define OMPI_SKIP_MPICXX 1
#include <mpi.h>

#include <cstdlib>
#include <numeric>

#include "flow/ranks.hpp"

namespace flow {

Ranks::Ranks() { MPI_Init(nullptr, nullptr); }
Ranks::~Ranks() { MPI_Finalize(); }

int Ranks::rank() const {
  int rank = 0;
  MPI_Comm_rank(MPI_COMM_WORLD, &rank);
  return rank;
}

int Ranks::size() const {
  int size = 0;
  MPI_Comm_size(MPI_COMM_WORLD, &size);
  return size;
}

double Ranks::largest(const double own) const {
  double all = 0.0;
  MPI_Allreduce(&own, &all, 1, MPI_DOUBLE, MPI_MAX, MPI_COMM_WORLD);
  return all;
}

void Ranks::abort(const int status) const {
  MPI_Abort(MPI_COMM_WORLD, status);
  std::exit(status);
}

void Ranks::exchange_bytes(const std::span<const std::byte> to_left,
                           const std::span<std::byte> from_left,
                           const std::span<const std::byte> to_right,
                           const std::span<std::byte> from_right, const bool ring) const {
  const int n = size();
  const int left = first() ? (ring ? n - 1 : MPI_PROC_NULL) : rank() - 1;
  const int right = last() ? (ring ? 0 : MPI_PROC_NULL) : rank() + 1;
  const auto shift = [](const std::span<const std::byte> out, const int to,
                        const std::span<std::byte> in, const int from, const int tag) {
    MPI_Sendrecv(out.data(), static_cast<int>(out.size()), MPI_BYTE, to, tag, in.data(),
                 static_cast<int>(in.size()), MPI_BYTE, from, tag, MPI_COMM_WORLD,
                 MPI_STATUS_IGNORE);
  };
  shift(to_left, left, from_right, right, 1);
  shift(to_right, right, from_left, left, 2);
}

std::vector<int> Ranks::gather_sizes(const std::size_t bytes) const {
  const int own = static_cast<int>(bytes);
  std::vector<int> sizes(first() ? static_cast<std::size_t>(size()) : 0);
  MPI_Gather(&own, 1, MPI_INT, sizes.data(), 1, MPI_INT, 0, MPI_COMM_WORLD);
  return sizes;
}

void Ranks::gather_bytes(const std::span<const std::byte> own, const std::vector<int>& sizes,
                         const std::span<std::byte> all) const {
  std::vector<int> offsets(sizes.size());
  std::exclusive_scan(sizes.begin(), sizes.end(), offsets.begin(), 0);
  MPI_Gatherv(own.data(), static_cast<int>(own.size()), MPI_BYTE, all.data(), sizes.data(),
              offsets.data(), MPI_BYTE, 0, MPI_COMM_WORLD);
}

}  // namespace flow
