#include "TQLogicalPort.h"

#include <algorithm>

#include "TQLogicalArchModelRenameInterface.h"
#include "TQLogicalArchModelVisitorInterface.h"

namespace Tarvo {
namespace Frameworks {

namespace {

std::string firstOf(std::vector<std::string> const& texts) {
  return texts.empty() ? std::string() : texts.front();
}

std::string joinNonEmpty(std::vector<std::string> const& texts) {
  std::string joined;
  for (auto const& text : texts) {
    if (text.empty()) continue;
    if (!joined.empty()) joined += ';';
    joined += text;
  }
  return joined;
}

}  // namespace

TQLogicalPort::TQLogicalPort(std::string const& name) : _Named(name) {}

TQLogicalPort::TQLogicalPort(TQLogicalPort const& other)
    : _Named(other),
      m_clkFreq(other.m_clkFreq),
      m_dataWidth(other.m_dataWidth),
      m_busWidth(other.m_busWidth),
      m_paramIndex(other.m_paramIndex),
      m_traceFile(other.m_traceFile),
      m_tqChannel(other.m_tqChannel),
      m_tqChannelFullHierNames(other.m_tqChannelFullHierNames),
      m_annotations(other.m_annotations),
      m_hwAnnotation(other.m_hwAnnotation),
      m_sdfIONames(other.m_sdfIONames),
      m_vlnvName(other.m_vlnvName),
      m_type(other.m_type),
      m_direction(other.m_direction),
      m_registerInterface(other.m_registerInterface),
      m_traced(other.m_traced) {}

TQLogicalPort* TQLogicalPort::clone() const {
  return new TQLogicalPort(*this);
}

std::string TQLogicalPort::getAnnotationFirst() const {
  return firstOf(m_annotations);
}

std::string TQLogicalPort::getHWAnnotationORAnnotationFirst() const {
  return firstOf(m_annotations);
}

std::string TQLogicalPort::getAnnotationsAsString() const {
  return joinNonEmpty(m_annotations);
}

bool TQLogicalPort::matchSWAnnotation(std::string const& text) const {
  return !text.empty() && std::find(m_annotations.begin(), m_annotations.end(), text) != m_annotations.end();
}

bool TQLogicalPort::matchSWAnnotation(std::vector<std::string> const& texts) const {
  return std::any_of(texts.begin(), texts.end(), [this](std::string const& text) { return matchSWAnnotation(text); });
}

std::string TQLogicalPort::getSDFIONameFirst() const {
  return firstOf(m_sdfIONames);
}

std::string TQLogicalPort::getSDFIONamesAsString() const {
  return joinNonEmpty(m_sdfIONames);
}

void TQLogicalPort::accept(TQLogicalArchModelVisitorInterface const& visitor) const {
  visitor.visitPort(*this);
}

void TQLogicalPort::rename(TQLogicalArchModelRenameInterface& renamer) {
  renamer.renamePort(*this);
}

}  // namespace Frameworks
}  // namespace Tarvo
