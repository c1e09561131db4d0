#include "TQLogicalArchPartitionDescWriter.h"

#include <cstdio>
#include <ostream>

#include "JsonDocumentFrame.h"
#include "TQLogicalArchModel.h"

using namespace Tarvo::Frameworks;

namespace {

typedef HCRapidJsonReadWriteUtils Json;
typedef Json::Value Value;

std::string hexWord(unsigned int value) {
  char text[9];
  std::snprintf(text, sizeof text, "%08x", value);
  return text;
}

std::string hexText(std::vector<unsigned int> const& words) {
  std::string text = "0x";
  for (unsigned int word : words)
    text += hexWord(word);
  return text;
}

}  // namespace

void TQLogicalArchPartitionDescWriter::writeToJsonFile(std::ostream& out, TQLogicalArchModel const& model,
                                                       std::vector<unsigned int> const& uuid,
                                                       unsigned int kpePlInterfaceId, int partitionStartColumn,
                                                       int partitionNumColumns, int designStartColumn,
                                                       int designNumColumns, std::string const& nameSpace) {
  bool const useDesign = partitionStartColumn == -1 && partitionNumColumns == -1;
  Json::Document doc(rapidjson::kObjectType);
  Json::Allocator& alloc = doc.GetAllocator();
  Value kpe(rapidjson::kObjectType);
  std::vector<TQLogicalTQIPInstance*> instances;
  model.getTQIPInstances(instances);
  for (TQLogicalTQIPInstance const* instance : instances) {
    Value partition(rapidjson::kObjectType);
    Json::AddIntegrProperty(partition, "startColumn", useDesign ? designStartColumn : partitionStartColumn, alloc);
    Json::AddIntegrProperty(partition, "numColumns", useDesign ? designNumColumns : partitionNumColumns, alloc);
    Json::AddStringProperty(partition, "uuid", hexText(uuid), alloc);
    Json::AddStringProperty(partition, "kpe_pl_intf_id", "0x" + hexWord(kpePlInterfaceId), alloc);
    Json::AddStringProperty(partition, "namespace", nameSpace, alloc);
    Value partitions(rapidjson::kArrayType);
    partitions.PushBack(partition, alloc);
    Value design(rapidjson::kObjectType);
    Json::AddIntegrProperty(design, "startColumn", designStartColumn, alloc);
    Json::AddIntegrProperty(design, "numColumns", designNumColumns, alloc);
    design.AddMember("partitions", partitions, alloc);
    Json::AddGenericValueProperty(kpe, instance->getName(), design, alloc);
  }
  doc.AddMember("KPE", kpe, alloc);
  JsonDocumentFrame::writePretty(out, doc);
}

bool TQLogicalArchPartitionDescWriter::writeToJsonFile(std::string const& fileName, TQLogicalArchModel const& model,
                                                       std::vector<unsigned int> const& uuid,
                                                       unsigned int kpePlInterfaceId, int partitionStartColumn,
                                                       int partitionNumColumns, int designStartColumn,
                                                       int designNumColumns, std::string const& nameSpace) {
  return JsonDocumentFrame::writeFile(fileName, [&](std::ostream& out) {
    writeToJsonFile(out, model, uuid, kpePlInterfaceId, partitionStartColumn, partitionNumColumns, designStartColumn,
                    designNumColumns, nameSpace);
    return true;
  });
}
