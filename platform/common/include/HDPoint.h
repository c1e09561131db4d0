#ifndef TARVO_HDPOINT_H
#define TARVO_HDPOINT_H

// A pair of coordinates, compared by x, then y.
template <typename T>
struct HDPoint {
  T x{};
  T y{};

  HDPoint() = default;
  HDPoint(T px, T py) : x(px), y(py) {}

  bool operator==(HDPoint const& other) const { return x == other.x && y == other.y; }
  bool operator!=(HDPoint const& other) const { return !(*this == other); }
  bool operator<(HDPoint const& other) const { return x < other.x || (x == other.x && y < other.y); }
};

#endif
