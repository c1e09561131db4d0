// Reads a metadata document through the installed library and checks that the library found
// its data beside itself: the message catalogue and the schemas of the installation.
#include <tarvo_readwrite/ComMsgMgr.h>
#include <tarvo_readwrite/HUTEnv.h>
#include <tarvo_readwrite/HUTFile.h>
#include <tarvo_readwrite/KPEPrjMetaDataModel.h>
#include <tarvo_readwrite/NOCJsonReadWriteUtils.h>
// The umbrella as well: it must hold nothing that stayed behind in the source tree.
#include <tarvo_readwrite.h>

#include <iostream>

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  std::string const prefix = argv[2];
  Tarvo::Frameworks::KPEPrjMetaDataModel meta;
  meta.readFromJSONFile(argv[1]);
  std::string const dataDir = HUTEnv::getQDSDataDir("messages/tarvo_messages.json");
  std::cout << meta.getKPEPLIntfIDString() << " " << meta.getProperties().size() << "\n" << dataDir << "\n";
  if (dataDir.compare(0, prefix.size(), prefix) != 0 || ComMsgMgr::lookupWording("8-100") == nullptr) return 1;
  std::string const schema = NOCJsonReadWriteUtils::getTrafficJsonSchemaFile();
  if (schema.compare(0, prefix.size(), prefix) != 0 || !HUTFile(schema).isFile()) return 1;
  return meta.getKPEPLIntfIDString() == "kpe0_pl_intf" ? 0 : 1;
}
