// The two values that the main thread shares with the console control handler, which the system
// runs on a thread of its own. No lock: each is one lock-free byte or word.
#pragma once

#include <atomic>
#include <cstdint>

namespace qvx {

/// Set to 1 by the console control handler, never reset. The run driver and the entry sequence read
/// it at one point each.
inline std::atomic<std::uint8_t> cancelFlag = 0;

/// The child that a console event ends: the solver or the MPI process launcher; 0 for none. A
/// launcher sets it and, on purpose, never clears it when the child ends; only the console control
/// handler does.
inline std::atomic<std::uint32_t> childProcessIdentifier = 0;

static_assert(decltype(cancelFlag)::is_always_lock_free);
static_assert(decltype(childProcessIdentifier)::is_always_lock_free);

}  // namespace qvx
