#include "NOCJsonReadWriteUtils.h"

#include "ComMsgMgr.h"
#include "HCRapidJsonReadWriteUtils.h"
#include "HUTEnv.h"
#include "HUTFile.h"

std::string NOCJsonReadWriteUtils::getSchemaFile(std::initializer_list<char const*> steps) {
  std::string relative;
  for (char const* step : steps) {
    if (!relative.empty()) relative += HUTFile::getDirSeparator();
    relative += step;
  }
  return HUTEnv::getQDSDataDir(relative) + HUTFile::getDirSeparator() + relative;
}

std::string NOCJsonReadWriteUtils::getTrafficJsonSchemaFile() {
  return getSchemaFile({"parts", "zorvex", "common", "noc", "schemas", "traffic.json"});
}

std::string NOCJsonReadWriteUtils::getSolutionJsonSchemaFile() {
  return getSchemaFile({"parts", "zorvex", "common", "noc", "schemas", "solution.json"});
}

std::string NOCJsonReadWriteUtils::getConstraintsJsonSchemaFile() {
  return getSchemaFile({"parts", "zorvex", "common", "noc", "schemas", "constraints.json"});
}

std::string NOCJsonReadWriteUtils::getKPEShimConstraintsJsonSchemaFile() {
  return getSchemaFile({"parts", "zorvex", "common", "noc", "schemas", "constraints.json"});
}

std::string NOCJsonReadWriteUtils::getLogicalArchJsonSchemaFile() {
  return getSchemaFile({"parts", "zorvex", "common", "tellura", "LogicalArchSchema.json"});
}

std::string NOCJsonReadWriteUtils::getTQSolutionJsonSchemaFile() {
  return getSchemaFile({"parts", "zorvex", "common", "tellura", "TQSolutionSchema.json"});
}

void NOCJsonReadWriteUtils::validateTrafficSchemaFile(std::string const& file) {
  HCRapidJsonReadWriteUtils::validateSchemaFile(file);
}

void NOCJsonReadWriteUtils::validateSolutionSchemaFile(std::string const& file) {
  HCRapidJsonReadWriteUtils::validateSchemaFile(file);
}

void NOCJsonReadWriteUtils::validateConstraintsSchemaFile(std::string const& file) {
  HCRapidJsonReadWriteUtils::validateSchemaFile(file);
}

void NOCJsonReadWriteUtils::validateLogicalArchSchemaFile(std::string const& file) {
  HCRapidJsonReadWriteUtils::validateSchemaFile(file);
}

void NOCJsonReadWriteUtils::validateTQSolutionSchemaFile(std::string const& file) {
  HCRapidJsonReadWriteUtils::validateSchemaFile(file);
}

void NOCJsonReadWriteUtils::issueInvalidPortForLogicalSlave(std::string const& port, std::string const& instance) {
  ComMsgMgr::sendMsg::eval(2, __FILE__, __LINE__, "tarvo", ComMsgMgr::MSG_CRITICAL_WARNING, "@73-30@%s%s", port,
                           instance);
}

void NOCJsonReadWriteUtils::issueInvalidPortType(std::string const& port) {
  ComMsgMgr::sendMsg::eval(1, __FILE__, __LINE__, "tarvo", ComMsgMgr::MSG_CRITICAL_WARNING, "@73-448@%s", port);
}
