#ifndef TARVO_DOCS_USAGEERROR_H
#define TARVO_DOCS_USAGEERROR_H

#include <stdexcept>
#include <string>

namespace tarvo_docs {

// A command line that cannot run (exit status 2). `pointsToHelp` adds where the help is.
class UsageError : public std::runtime_error {
 public:
  explicit UsageError(std::string const& text, bool pointsToHelp = true)
      : std::runtime_error(text), m_pointsToHelp(pointsToHelp) {}
  bool pointsToHelp() const { return m_pointsToHelp; }

 private:
  bool m_pointsToHelp;
};

}  // namespace tarvo_docs

#endif
