// Reads project metadata and a NoC traffic specification, walks both models and writes each
// back: usage  tarvo_example METADATA.json TRAFFIC.json OUT_DIR
#include <tarvo_readwrite/HDGUIStatus.h>
#include <tarvo_readwrite/HEXAll.h>
#include <tarvo_readwrite/KPEPrjMetaDataModel.h>
#include <tarvo_readwrite/NOCJsonTrafficSpecReader.h>
#include <tarvo_readwrite/NOCJsonTrafficSpecWriter.h>
#include <tarvo_readwrite/TrafficLInst.h>
#include <tarvo_readwrite/TrafficPath.h>
#include <tarvo_readwrite/TrafficSpec.h>

#include <iostream>
#include <string>

namespace {

bool metadata(std::string const& in, std::string const& out) {
  Tarvo::Frameworks::KPEPrjMetaDataModel meta;
  try {
    meta.readFromJSONFile(in);
  } catch (HEXAll const& error) {  // a missing or malformed file: the message names it
    std::cerr << error.what() << "\n";
    return false;
  }
  std::cout << "interface " << meta.getKPEPLIntfIDString() << ", " << meta.getProperties().size() << " properties:";
  for (auto const& property : meta.getProperties()) std::cout << " " << property.first;
  std::cout << "\n";
  meta.writeToJSONFile(out);
  return true;
}

bool traffic(std::string const& in, std::string const& out) {
  HrdIPToolCntr::TrafficSpec spec;
  HDGUIStatus status;  // another thread may poll getPercent() while the reader runs
  try {
    NOC::NOCJsonTrafficSpecReader::readFromJsonFile(in, spec, status);
  } catch (HEXAll const& error) {  // unreadable, malformed, or refused by the schema
    std::cerr << error.what() << "\n";
    return false;
  }
  std::cout << spec.getAllLogicalInstance().size() << " instances, " << spec.getNumPaths() << " paths ("
            << status.getPercent() << "% read)\n";
  for (int i = 0; i < spec.getNumPaths(); ++i) {
    HrdIPToolCntr::TrafficPath const* path = spec.getPath(i);
    std::cout << "  " << path->getMaster()->getName() << " -> " << path->getSlave()->getName() << "\n";
  }
  // The writer reports a document its schema refuses and returns false.
  return NOC::NOCJsonTrafficSpecWriter::writeToJsonFile(out, spec, status);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4) {
    std::cerr << "usage: tarvo_example METADATA.json TRAFFIC.json OUT_DIR\n";
    return 2;
  }
  std::string const outDir = argv[3];
  bool const ok = metadata(argv[1], outDir + "/project_meta.json") & traffic(argv[2], outDir + "/noc_traffic.json");
  return ok ? 0 : 1;
}
