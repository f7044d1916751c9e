// Where the dice roller's numbers come from: a uniform draw from a closed range. The system's
// source is truly random; the queued one gives the draws a script or test decided on.
#pragma once

#include <deque>

namespace zeph {

class RandomSource {
  public:
    virtual ~RandomSource() = default;
    // A whole number from `low` to `high`, both included.
    virtual int InRange(int low, int high) = 0;
};

class SystemRandom : public RandomSource {
  public:
    int InRange(int low, int high) override;
};

class QueuedRandom : public RandomSource {
  public:
    void Queue(int draw) { draws_.push_back(draw); }
    // Throws std::runtime_error when no draw is queued or the next one is out of the range.
    int InRange(int low, int high) override;

  private:
    std::deque<int> draws_;
};

}  // namespace zeph
