#include <stdexcept>

#include "HCRapidJsonReadWriteUtils.h"
#include "HIPDeviceLoader.h"
#include "LoadedDocuments.h"
#include "NOCJsonTrafficSpecReader.h"

namespace tarvo_docs {

char const* const KindOptions::kTraffic = "--traffic";
char const* const KindOptions::kDevice = "--device";
char const* const KindOptions::kArch = "--arch";
char const* const KindOptions::kPrefix = "--prefix";
char const* const KindOptions::kHierarchy = "--hierarchy";
char const* const KindOptions::kOnly = "--only";
char const* const KindOptions::kParam = "--param";

NocKindInputs::NocKindInputs(ToolOptions const& options, HDGUIStatus& status) {
  device = options.has(KindOptions::kDevice)
               ? DevHrdIP::HIPDeviceLoader::readFromFile(options.get(KindOptions::kDevice))
               : DevHrdIP::HIPDeviceLoader::makeDefaultDevice();
  NOC::NOCJsonTrafficSpecReader::readFromJsonFile(options.get(KindOptions::kTraffic), spec, status);
}

UnboundNocDocument::UnboundNocDocument(DocumentSource const& source, std::string const& schemaPath,
                                       JsonDocumentFrame::Opener opener, std::string const& title,
                                       std::vector<std::pair<std::string, std::string>> const& counted)
    : m_title(title) {
  JsonDocumentFrame::Document doc;
  source.open(opener, [&](std::istream& in, std::string const& name) {
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

bool UnboundNocDocument::write(std::ostream&, ToolOptions const&, HDGUIStatus&) const {
  throw std::runtime_error(m_title + " documents are converted through their model; give --traffic FILE.");
}

}  // namespace tarvo_docs
