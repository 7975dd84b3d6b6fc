#pragma once

#include <string>
#include <vector>

// Two benchmarks whose times are compared: how many times as long `slow` takes as `fast`. What
// counts is processor time, the kernel's for writing files included, so that other programs that
// run on the machine matter less.
struct Ratio {
  std::string title;
  std::string slow;
  std::string fast;
};

// The main of a benchmark program: runs its benchmarks several times in mixed order, so that a busy
// moment of the machine meets all of them alike, and then tells the ratios of the fastest runs. The
// arguments are Google Benchmark's. The exit status is 0 unless a benchmark has failed.
int RunWithRatios(int argc, char** argv, const std::vector<Ratio>& ratios);
