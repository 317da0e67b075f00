#pragma once

#include <QString>

#include <vector>

// Home, settings, data and cache folders of the benchmark's own under root, so that
// nothing of the person who runs it is read or written.
void IsolateEnvironment(const QString &root);

// The middle value of the timings (the mean of the two middle ones for an even count).
double Median(std::vector<double> values);
