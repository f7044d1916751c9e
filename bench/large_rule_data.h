// Rule data files for the benchmarks: the bundled sample, and a large invented file with the
// same shape, made on first use so that timings on a big data set need no download.
#pragma once

#include <string>

namespace zeph::bench {

// Writes a deterministic rule data file of about 10 MB with the shape of the sample.
void WriteLargeRuleData(const std::string& path);

// `<dir of the executable>/../bench-data/large.xml`, written there first when it is missing.
std::string LargeRuleDataPath();

// The sample rule data of the source tree.
std::string SampleRuleDataPath();

}  // namespace zeph::bench
