#include "FifoLocations.h"

#include "ConstrDocumentKeys.h"
#include "ConstrHandler.h"
#include "ConstrWriteSupport.h"

#include <utility>
#include <vector>

namespace kpe {
namespace constraints {

typedef ConstrDocumentKeys Keys;

using namespace writesupport;

namespace {

void addIntIfSet(JsonValue& object, char const* key, bool isSet, int number, JsonDocument& document) {
  if (isSet) {
    addInt(object, key, number, document);
  }
}

}  // namespace

// ---------------------------------------------------------------------------------------------
// Records

bool FifoLocationsRecord::equalPlaces(PhysicalSpec const& a, PhysicalSpec const& b) {
  return a.getName() == b.getName() && a.getColumn() == b.getColumn() && a.getRow() == b.getRow() &&
         a.getChannel() == b.getChannel() && a.getBankId() == b.getBankId() && a.getOffset() == b.getOffset() &&
         a.getPhysicalType() == b.getPhysicalType();
}

bool FifoLocationsRecord::equals(FifoLocationsRecord const& other) const {
  if (m_kind != other.m_kind) {
    return false;
  }
  switch (m_kind) {
    case DMA:
      return static_cast<DmaFifoRecord const&>(*this).equals(static_cast<DmaFifoRecord const&>(other));
    case STREAM:
      return static_cast<StreamFifoRecord const&>(*this).equals(static_cast<StreamFifoRecord const&>(other));
    default:
      return m_name == other.m_name && static_cast<UnspecifiedFifoRecord const&>(*this).getSize() ==
                                           static_cast<UnspecifiedFifoRecord const&>(other).getSize();
  }
}

// The destructors are not virtual, so the kind tells which class to delete as.
void FifoLocationsRecord::destroy(FifoLocationsRecord* record) {
  if (record == nullptr) {
    return;
  }
  switch (record->m_kind) {
    case DMA:
      delete static_cast<DmaFifoRecord*>(record);
      break;
    case STREAM:
      delete static_cast<StreamFifoRecord*>(record);
      break;
    default:
      delete static_cast<UnspecifiedFifoRecord*>(record);
      break;
  }
}

DmaFifoRecord::DmaFifoRecord(std::string const& name) : FifoLocationsRecord(name, DMA), m_size(HATAttr::INT) {}

void DmaFifoRecord::write(JsonDocument& document, std::string const& name, JsonValue& value) const {
  JsonValue record(rapidjson::kObjectType);
  addString(record, Keys::tileType, PhysicalSpec::toString(m_spec.getPhysicalType()), document);
  addIntIfSet(record, Keys::row, m_spec.hasRow(), m_spec.getRow(), document);
  addIntIfSet(record, Keys::column, m_spec.hasColumn(), m_spec.getColumn(), document);
  addIntIfSet(record, Keys::size, hasSize(), getSize(), document);
  addIntIfSet(record, Keys::offset, m_spec.hasOffset(), m_spec.getOffset(), document);
  addIntIfSet(record, Keys::bankId, m_spec.hasBankId(), m_spec.getBankId(), document);
  addMember(value, name, record, document);
}

FifoLocationsRecord* DmaFifoRecord::clone() const {
  return new DmaFifoRecord(*this);
}

bool DmaFifoRecord::equals(DmaFifoRecord const& other) const {
  return equalPlaces(m_spec, other.m_spec) && getSize() == other.getSize();
}

StreamFifoRecord::StreamFifoRecord(std::string const& name) : FifoLocationsRecord(name, STREAM) {}

void StreamFifoRecord::write(JsonDocument& document, std::string const& name, JsonValue& value) const {
  JsonValue record(rapidjson::kObjectType);
  addString(record, Keys::tileType, PhysicalSpec::toString(m_spec.getPhysicalType()), document);
  addIntIfSet(record, Keys::row, m_spec.hasRow(), m_spec.getRow(), document);
  addIntIfSet(record, Keys::column, m_spec.hasColumn(), m_spec.getColumn(), document);
  addIntIfSet(record, Keys::channel, m_spec.hasChannel(), m_spec.getChannel(), document);
  addMember(value, name, record, document);
}

FifoLocationsRecord* StreamFifoRecord::clone() const {
  return new StreamFifoRecord(*this);
}

bool StreamFifoRecord::equals(StreamFifoRecord const& other) const {
  return equalPlaces(m_spec, other.m_spec);
}

UnspecifiedFifoRecord::UnspecifiedFifoRecord(std::string const& name)
    : FifoLocationsRecord(name, UNSPECIFIED), m_size(HATAttr::INT) {}

void UnspecifiedFifoRecord::write(JsonDocument&, std::string const&, JsonValue&) const {}

FifoLocationsRecord* UnspecifiedFifoRecord::clone() const {
  return new UnspecifiedFifoRecord(*this);
}

// ---------------------------------------------------------------------------------------------
// FifoLocationsRecords

FifoLocationsRecords::~FifoLocationsRecords() {
  clear();
}

DmaFifoRecord* FifoLocationsRecords::addDmaFifoRecord(std::string const& name, PhysicalSpec::PhysicalType type,
                                                      int column, int row, int size, int offset, int bankId) {
  auto const found = m_records.find(name);
  if (found != m_records.end()) {
    FifoLocationsRecord* record = found->second;
    return record->getKind() == FifoLocationsRecord::DMA ? static_cast<DmaFifoRecord*>(record) : nullptr;
  }
  auto* record = new DmaFifoRecord(name);
  PhysicalSpec& place = record->getPhysicalSpec();
  place.setPhysicalType(type);
  place.setXY(column, row);
  place.setBankId(bankId);
  place.setOffset(offset);
  record->setSize(size);
  m_records[name] = record;
  return record;
}

DmaFifoRecord* FifoLocationsRecords::addDmaFifoRecord(PhysicalSpec::PhysicalType type, int column, int row, int size,
                                                      int offset, int bankId) {
  std::string const name = "dmsfr" + std::to_string(countOfKind(FifoLocationsRecord::DMA));
  return addDmaFifoRecord(name, type, column, row, size, offset, bankId);
}

StreamFifoRecord* FifoLocationsRecords::addStreamFifoRecord(std::string const& name, PhysicalSpec::PhysicalType type,
                                                            int column, int row, int channel) {
  auto const found = m_records.find(name);
  if (found != m_records.end()) {
    FifoLocationsRecord* record = found->second;
    return record->getKind() == FifoLocationsRecord::STREAM ? static_cast<StreamFifoRecord*>(record) : nullptr;
  }
  auto* record = new StreamFifoRecord(name);
  PhysicalSpec& place = record->getPhysicalSpec();
  place.setPhysicalType(type);
  place.setXY(column, row);
  place.setChannel(channel);
  m_records[name] = record;
  return record;
}

StreamFifoRecord* FifoLocationsRecords::addStreamFifoRecord(PhysicalSpec::PhysicalType type, int column, int row,
                                                            int channel) {
  std::string const name = "swfr" + std::to_string(countOfKind(FifoLocationsRecord::STREAM));
  return addStreamFifoRecord(name, type, column, row, channel);
}

FifoLocationsRecord* FifoLocationsRecords::get(std::string const& name) const {
  auto const found = m_records.find(name);
  return found == m_records.end() ? nullptr : found->second;
}

FifoLocationsRecord* FifoLocationsRecords::findEqual(FifoLocationsRecord const& like) const {
  for (auto const& entry : m_records) {
    if (entry.second->equals(like)) {
      return entry.second;
    }
  }
  return nullptr;
}

bool FifoLocationsRecords::equals(FifoLocationsRecords const& other) const {
  RecordMap const theirs = other.m_records;
  auto their = theirs.begin();
  for (auto const& mine : m_records) {
    if (their == theirs.end() || mine.first != their->first || !mine.second->equals(*their->second)) {
      return false;
    }
    ++their;
  }
  return true;
}

void FifoLocationsRecords::clear() {
  for (auto& entry : m_records) {
    FifoLocationsRecord::destroy(entry.second);
  }
  m_records.clear();
}

// Clones every record before any is replaced: a store copied into itself would otherwise
// destroy a record and then clone it.
void FifoLocationsRecords::copy(ConstrHandler const& source) {
  std::vector<std::pair<std::string, FifoLocationsRecord*>> clones;
  for (auto const& entry : source.getRecords().getRecords()) {
    clones.emplace_back(entry.first, entry.second->clone());
  }
  for (auto const& made : clones) {
    FifoLocationsRecord*& slot = m_records[made.first];
    FifoLocationsRecord::destroy(slot);
    slot = made.second;
  }
}

void FifoLocationsRecords::write(JsonDocument& document, JsonValue& value) const {
  if (m_records.empty()) {
    return;
  }
  JsonValue dma(rapidjson::kObjectType);
  JsonValue stream(rapidjson::kObjectType);
  for (auto const& entry : m_records) {
    if (entry.second->getKind() == FifoLocationsRecord::DMA) {
      entry.second->write(document, entry.first, dma);
    } else if (entry.second->getKind() == FifoLocationsRecord::STREAM) {
      entry.second->write(document, entry.first, stream);
    }
  }
  JsonValue records(rapidjson::kObjectType);
  addMember(records, Keys::dmaFifos, dma, document);
  addMember(records, Keys::streamFifos, stream, document);
  addMember(value, Keys::fifoLocationsRecords, records, document);
}

std::size_t FifoLocationsRecords::countOfKind(FifoLocationsRecord::Kind kind) const {
  std::size_t count = 0;
  for (auto const& entry : m_records) {
    count += entry.second->getKind() == kind ? 1 : 0;
  }
  return count;
}

// ---------------------------------------------------------------------------------------------
// FifoLocationsConstr

FifoLocationsConstr::FifoLocationsConstr(std::string const& objName)
    : BaseConstraint(FIFO_LOCATIONS, PORT, objName), m_recordNames(HATAttr::STRING_LIST) {}

// Record names are not mapped; the records travel with the store's copy.
void FifoLocationsConstr::clone(ConstrHandler& target, BaseNameResolver const* resolver) const {
  if (getFifoLocationsRecordNames().empty()) {
    return;
  }
  std::string const name = resolvedObjName(resolver);
  target.setFifoLocationsConstr(getObjType(), name, getFifoLocationsRecordNames());
  if (FifoLocationsConstr* made = target.getFifoLocationsConstr(name)) {
    made->copySrcInfoFrom(this);
  }
}

void FifoLocationsConstr::write(JsonDocument& document, JsonValue& value, BaseNameResolver const*) const {
  if (!hasFifoLocationsRecordNames()) {
    return;
  }
  JsonValue names = makeStringArray(getFifoLocationsRecordNames(), document);
  addMember(value, Keys::fifoLocations, names, document);
  writeSrcInfo(document, value, Keys::fifoLocations);
}

// A record's place is not shifted by this.
void FifoLocationsConstr::offsetColumn(int) {}

std::string FifoLocationsConstr::str() const {
  return listText(getObjName(), "fifo_locations", getFifoLocationsRecordNames());
}

std::vector<std::string> const& FifoLocationsConstr::getFifoLocationsRecordNames() const {
  return m_recordNames.getStringList();
}

void FifoLocationsConstr::getFifoLocationsRecordNames(std::vector<std::string>& out) const {
  out = m_recordNames.getStringList();
}

std::string FifoLocationsConstr::getFifoLocationsRecordName(unsigned int index) const {
  std::vector<std::string> const& names = getFifoLocationsRecordNames();
  return index < names.size() ? names[index] : std::string();
}

void FifoLocationsConstr::addFifoLocationsRecordNames(std::vector<std::string> const& names) {
  std::vector<std::string> all = getFifoLocationsRecordNames();
  all.insert(all.end(), names.begin(), names.end());
  m_recordNames.setStringList(all);
}

void FifoLocationsConstr::setFifoLocationsRecordNames(std::vector<std::string> const& names) {
  m_recordNames.setStringList(names);
}

bool FifoLocationsConstr::hasFifoLocationsRecordNames() const {
  return m_recordNames.isSet();
}

bool FifoLocationsConstr::containsFifoRecord(std::string const& name) const {
  return containsName(getFifoLocationsRecordNames(), name);
}

}  // namespace constraints
}  // namespace kpe
