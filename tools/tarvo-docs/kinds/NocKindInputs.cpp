#include "NocKindInputs.h"

#include <iostream>

#include "HIPDeviceLoader.h"
#include "NOCJsonTrafficSpecReader.h"

namespace tarvo_docs {

char const* const NocKindInputs::kTrafficOption = "--traffic";
char const* const NocKindInputs::kDeviceOption = "--device";

NocKindInputs::NocKindInputs(ToolOptions const& options, HDGUIStatus& status) {
  device = options.has(kDeviceOption) ? DevHrdIP::HIPDeviceLoader::readFromFile(options.get(kDeviceOption))
                                      : DevHrdIP::HIPDeviceLoader::makeDefaultDevice();
  NOC::NOCJsonTrafficSpecReader::readFromJsonFile(options.get(kTrafficOption), spec, status);
}

UnboundNocDocument::UnboundNocDocument(std::string const& file, std::string const& schemaPath,
                                       JsonDocumentFrame::Opener opener, std::string const& title,
                                       std::vector<std::pair<std::string, std::string>> const& counted)
    : m_title(title) {
  JsonDocumentFrame::Document doc;
  JsonDocumentFrame::readFile(file, opener, [&](std::istream& in, std::string const& name) {
    JsonDocumentFrame::load(in, name, schemaPath, opener, doc);
    return true;
  });
  for (auto const& array : counted) {
    rapidjson::SizeType const count =
        HCRapidJsonReadWriteUtils::IsArrayProperty(doc, array.first) ? doc[array.first.c_str()].Size() : 0;
    m_counts += (m_counts.empty() ? "" : ", ") + std::to_string(count) + " " + array.second + (count == 1 ? "" : "s");
  }
}

std::string UnboundNocDocument::brief() const {
  return m_counts + "; schema only, read against a traffic specification with --traffic FILE";
}

void UnboundNocDocument::summarize(std::ostream& out) const {
  out << m_title << ": " << brief() << "\n";
}

bool UnboundNocDocument::write(std::ostream&, ToolOptions const&) const {
  std::cerr << "ERROR: " << m_title << " documents are converted through their model; give --traffic FILE.\n";
  return false;
}

}  // namespace tarvo_docs
