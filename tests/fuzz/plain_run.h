// A second, plain formulation of what a run's command line and CMX file lead to.
#pragma once

#include <string>
#include <vector>

#include "tests/fuzz/facts.h"
#include "tests/fuzz/plain_reading.h"

namespace qvx::fuzz {

/// What the working folders are made from.
struct PlainFolders {
  std::string home;
  std::string project;
};

/// Parallel mode, process count, weights, and, for a distributed run, the folders moved to the
/// share; under names that begin with `prefix`.
Facts PlainParallel(const std::string& prefix, int mode, PlainFolders folders,
                    const Facts& taskManager, const PlainRemoteMachines& remote);

/// "-hosts ..." as the MPI process launcher takes it.
std::string PlainHosts(const PlainRemoteMachines& remote);

Facts PlainCommandLine(const std::vector<std::string>& arguments);

/// From the command line to the MPI command line; `file` is the CMX file. The parallel folder name
/// is "Share".
Facts PlainRun(const std::vector<std::string>& arguments, const std::string& file);

/// A number with all its digits.
std::string Exact(double number);

}  // namespace qvx::fuzz
