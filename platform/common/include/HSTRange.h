#ifndef TARVO_HSTRANGE_H
#define TARVO_HSTRANGE_H

#include <cstddef>
#include <iterator>

namespace HST {

// A pair of iterators that a range-for can walk; it owns nothing.
template <typename Iterator>
class Range {
 public:
  Range() = default;
  Range(Iterator first, Iterator last) : m_begin(first), m_end(last) {}

  Iterator begin() const { return m_begin; }
  Iterator end() const { return m_end; }
  bool empty() const { return m_begin == m_end; }
  std::size_t size() const { return static_cast<std::size_t>(std::distance(m_begin, m_end)); }

 private:
  Iterator m_begin{};
  Iterator m_end{};
};

template <typename Iterator>
Range<Iterator> makeRange(Iterator first, Iterator last) {
  return Range<Iterator>(first, last);
}

}  // namespace HST

#endif
