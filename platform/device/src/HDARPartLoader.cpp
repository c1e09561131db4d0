#include "HDARPartLoader.h"

#include <rapidjson/schema.h>

#include <fstream>

#include "GRMBel.h"
#include "HUTEnv.h"
#include "HUTFile.h"
#include "JsonMembers.h"
#include "JsonParse.h"
#include "JsonSchemaCheck.h"

typedef HCRapidJsonReadWriteUtils Json;

char const* const HDARPartLoader::kSection = "kpeShimRow";

namespace {

void parse(std::istream& in, std::string const& fileName, Json::Document& doc) {
  tarvo::jsonio::JsonParse::parseOrReport(in, fileName, doc);
}

void validate(Json::Document const& doc, std::string const& fileName) {
  tarvo::jsonio::JsonSchemaCheck::validateAgainstFile(doc, fileName, HDARPartLoader::getSchemaFile());
}

HDARShimSite readSite(Json::Value const& site) {
  HDARShimSite result;
  result.name = Json::GetStringProperty(site, "name");
  if (Json::IsIntegrProperty(site, "column")) result.column = Json::GetIntegrProperty(site, "column");
  if (Json::IsIntegrProperty(site, "channel")) result.channel = Json::GetIntegrProperty(site, "channel");
  return result;
}

HDARShimTile readTile(Json::Value const& tile) {
  HDARShimTile result;
  result.name = Json::GetStringProperty(tile, "name");
  result.column = Json::GetIntegrProperty(tile, "column");
  if (Json::IsArrayProperty(tile, "sites"))
    for (Json::Value const& site : tile["sites"].GetArray())
      result.sites.push_back(readSite(site));
  return result;
}

std::vector<HDARShimTile> readShimRow(Json::Value const& root) {
  std::vector<HDARShimTile> tiles;
  Json::Value const* section = tarvo::jsonio::JsonMembers::findObject(root, HDARPartLoader::kSection);
  if (section == nullptr) return tiles;
  if (Json::IsArrayProperty(*section, "tiles"))
    for (Json::Value const& tile : (*section)["tiles"].GetArray())
      tiles.push_back(readTile(tile));
  return tiles;
}

// What the schema can't check: the columns fit a site's column field, and no two sites share
// a name.
void checkShimRow(std::vector<HDARShimTile> const& tiles, std::string const& fileName) {
  for (HDARShimTile const& tile : tiles)
    if (tile.column < 0 || static_cast<unsigned>(tile.column) > GRMBel::kMaxColumn)
      Json::errorParsingJsonFile(fileName, "the shim tile '" + tile.name + "' has the column " +
                                               std::to_string(tile.column) + ", outside 0 to " +
                                               std::to_string(GRMBel::kMaxColumn));
  std::string const duplicate = HDARPart::findDuplicateSite(tiles);
  if (!duplicate.empty()) Json::errorParsingJsonFile(fileName, "the shim site '" + duplicate + "' is given twice");
}

}  // namespace

std::unique_ptr<HDARPart> HDARPartLoader::readFromFile(std::string const& fileName) {
  std::string canonical = fileName;
  HUTFile(fileName).getCanonicalName(canonical);
  std::ifstream in(canonical, std::ios_base::binary);
  if (!HUTFile(canonical).isFile() || !in.good()) Json::errorReadingJsonFile(canonical);
  return readFromStream(in, fileName);
}

std::unique_ptr<HDARPart> HDARPartLoader::readFromStream(std::istream& in, std::string const& fileName) {
  Json::Document doc;
  parse(in, fileName, doc);
  validate(doc, fileName);
  return build(doc, fileName);
}

std::unique_ptr<HDARPart> HDARPartLoader::build(Json::Value const& root, std::string const& fileName) {
  std::vector<HDARShimTile> const tiles = readShimRow(root);
  checkShimRow(tiles, fileName);
  return std::make_unique<HDARPart>(Json::GetStringProperty(root, "name"), tiles);
}

std::string HDARPartLoader::getSchemaFile() {
  std::string const& separator = HUTFile::getDirSeparator();
  std::string const relative = "devices" + separator + "device.schema.json";
  return HUTEnv::getQDSDataDir(relative) + separator + relative;
}
