#pragma once

#include "isolated_environment.h"

#include <vector>

// The middle value of the timings (the mean of the two middle ones for an even count).
double Median(std::vector<double> values);
