#pragma once

#include <cstddef>

/// The program's own operator new, in numbers. What matrices take comes from elsewhere: see
/// support/MatrixLimit.h.
namespace test {

/// Bytes held now.
std::size_t heldBytes();
/// The most that were held since the last reset.
std::size_t peakBytes();
void resetPeak();

/// The n-th allocation from now on (from 0) fails, once.
void failAllocation(long n);
/// Whether it came to that; no allocation fails from now on.
bool endFailing();

/// Fills all that is allocated from now on with a byte; with nothing after -1.
void fillMemory(int byte);

/// While it lives, allocations neither fail nor count as those that could.
class FailingPaused {
public:
    FailingPaused();
    ~FailingPaused();
    FailingPaused(const FailingPaused&) = delete;
    FailingPaused& operator=(const FailingPaused&) = delete;

private:
    long before_;
};

}  // namespace test
