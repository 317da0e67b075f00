#pragma once

#include <QtGlobal>

#include <functional>
#include <vector>

// The slots of the random pin allocation: for i from 1 to count, a slot drawn from
// uniform() (a value from 0 up to but not including 1) takes i, and a slot already
// taken passes it on to the next one, wrapping past the last. Slot k, counted from 1,
// is element k - 1 of the result, and the result is always a permutation of 1 to count.
std::vector<qint32> RandomPinSlots(qint32 count, const std::function<double()> &uniform);
