// A second, plain formulation of how a CMX file is read, for comparison with the product's readers:
// whole texts in memory, nothing shared with the product.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "tests/fuzz/facts.h"

namespace qvx::fuzz {

/// `text`, or the fault of a text that its field of `width` characters cannot hold.
std::string Bounded(const std::string& field, std::size_t width, const std::string& text);

/// The leading decimal integer, cut to 32 bits.
int PlainInteger(const std::string& text);

/// A count that memory is taken for; TooLarge for more than a few thousand.
int PlainCount(const std::string& text);

/// Settings by key; keys that the file does not name are missing.
Facts PlainTaskManager(const std::string& file);

struct PlainMachine {
  std::string host, tasks, weighting;
};

struct PlainRemoteMachines {
  Facts fields;
  std::vector<PlainMachine> machines;
};

PlainRemoteMachines PlainRemote(const std::string& file);
int PlainCooling(const std::string& file);
Facts PlainMultiShot(const std::string& file);

}  // namespace qvx::fuzz
