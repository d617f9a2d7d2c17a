// The product's results in the form of the plain formulation's.
#pragma once

#include <string>
#include <vector>

#include "launcher/launcher_context.h"
#include "tests/fuzz/facts.h"

namespace qvx::fuzz {

Facts ProductCommandLine(const std::vector<std::string>& arguments);
Facts ProductRun(const std::vector<std::string>& arguments, const std::string& file);

/// The parallel settings and folders of a record, which derives from both.
Facts ParallelFacts(const std::string& prefix, const QVXRunTexts& texts,
                    const QVXRunSettings& settings);

}  // namespace qvx::fuzz
