#pragma once

#include <optional>
#include <ostream>

// The forms of the program that run without a window, for arbiters and for checking:
//   velmora --pair FILE.trf   pairs the next round of a tournament report file and
//                             prints the number of boards, then "white black" a line;
//   velmora --check FILE.trf  re-pairs every round and lists those that differ.
// Returns the exit code when the arguments ask for one of them, nothing otherwise.
std::optional<int> RunCommandLine(int argc, const char *const *argv, std::ostream &out,
                                  std::ostream &err);
