#ifndef TARVO_FIFOLOCATIONS_H
#define TARVO_FIFOLOCATIONS_H

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "BaseConstraint.h"
#include "DefaultedAttr.h"
#include "PhysicalSpec.h"

namespace kpe {
namespace constraints {

// A named physical location of a FIFO, shared by the ports whose FifoLocationsConstr lists
// its name. Records have no virtual destructor: they are released by destroy(), which
// knows the class by the kind.
class FifoLocationsRecord {
 public:
  enum Kind : std::int32_t { DMA = 0, STREAM = 1, UNSPECIFIED = 2 };

  std::string const& getName() const { return m_name; }
  Kind getKind() const { return m_kind; }

  // Adds the record's object under `name` to `value`.
  virtual void write(JsonDocument& document, std::string const& name, JsonValue& value) const = 0;
  // A new record of the same class and contents; the caller releases it with destroy().
  virtual FifoLocationsRecord* clone() const = 0;

  // Equal by class: DMA by place and size, stream by place, unspecified by name and size.
  bool equals(FifoLocationsRecord const& other) const;
  static void destroy(FifoLocationsRecord* record);

 protected:
  FifoLocationsRecord(std::string const& name, Kind kind) : m_name(name), m_kind(kind) {}
  FifoLocationsRecord(FifoLocationsRecord const&) = default;
  FifoLocationsRecord& operator=(FifoLocationsRecord const&) = default;
  ~FifoLocationsRecord() = default;

  // Same name text, column, row, channel, bankId, offset and type.
  static bool equalPlaces(PhysicalSpec const& a, PhysicalSpec const& b);

 private:
  std::string m_name;
  Kind m_kind;
};

class DmaFifoRecord final : public FifoLocationsRecord {
 public:
  explicit DmaFifoRecord(std::string const& name);
  ~DmaFifoRecord() = default;

  void write(JsonDocument& document, std::string const& name, JsonValue& value) const override;
  FifoLocationsRecord* clone() const override;
  using FifoLocationsRecord::equals;
  bool equals(DmaFifoRecord const& other) const;

  PhysicalSpec const& getPhysicalSpec() const { return m_spec; }
  PhysicalSpec& getPhysicalSpec() { return m_spec; }
  int getSize() const { return m_size.getInt(); }
  void setSize(int size) { m_size.setInt(size); }
  bool hasSize() const { return m_size.isSet(); }

 private:
  PhysicalSpec m_spec;
  DefaultedAttr m_size;
};

class StreamFifoRecord final : public FifoLocationsRecord {
 public:
  explicit StreamFifoRecord(std::string const& name);
  ~StreamFifoRecord() = default;

  void write(JsonDocument& document, std::string const& name, JsonValue& value) const override;
  FifoLocationsRecord* clone() const override;
  using FifoLocationsRecord::equals;
  bool equals(StreamFifoRecord const& other) const;

  PhysicalSpec const& getPhysicalSpec() const { return m_spec; }
  PhysicalSpec& getPhysicalSpec() { return m_spec; }

 private:
  PhysicalSpec m_spec;
};

// A record without a place; it writes nothing.
class UnspecifiedFifoRecord final : public FifoLocationsRecord {
 public:
  explicit UnspecifiedFifoRecord(std::string const& name);
  ~UnspecifiedFifoRecord() = default;

  void write(JsonDocument& document, std::string const& name, JsonValue& value) const override;
  FifoLocationsRecord* clone() const override;

  int getSize() const { return m_size.getInt(); }
  void setSize(int size) { m_size.setInt(size); }

 private:
  DefaultedAttr m_size;
};

// The store's table of FIFO records, by name. It owns the records.
class FifoLocationsRecords {
 public:
  typedef std::map<std::string, FifoLocationsRecord*> RecordMap;

  FifoLocationsRecords() = default;
  FifoLocationsRecords(FifoLocationsRecords const&) = delete;
  FifoLocationsRecords& operator=(FifoLocationsRecords const&) = delete;
  ~FifoLocationsRecords();

  // The record of that name if it is a DMA record, null if the name holds another kind;
  // otherwise a new record (coordinates first, then bankId and offset).
  DmaFifoRecord* addDmaFifoRecord(std::string const& name, PhysicalSpec::PhysicalType type, int column, int row,
                                  int size, int offset, int bankId);
  // The same under the generated name "dmsfr" + the number of DMA records held.
  DmaFifoRecord* addDmaFifoRecord(PhysicalSpec::PhysicalType type, int column, int row, int size, int offset,
                                  int bankId);
  StreamFifoRecord* addStreamFifoRecord(std::string const& name, PhysicalSpec::PhysicalType type, int column, int row,
                                        int channel);
  // The same under the generated name "swfr" + the number of stream records held.
  StreamFifoRecord* addStreamFifoRecord(PhysicalSpec::PhysicalType type, int column, int row, int channel);

  FifoLocationsRecord* get(std::string const& name) const;
  RecordMap const& getRecords() const { return m_records; }
  // The first record, in name order, equal to `like`; null if none.
  FifoLocationsRecord* findEqual(FifoLocationsRecord const& like) const;

  // Pairs the records of both tables in name order up to the end of this one; so an empty
  // table equals any other.
  bool equals(FifoLocationsRecords const& other) const;
  void clear();
  // Replaces or adds a clone of each of the source's records.
  void copy(ConstrHandler const& source);
  // "fifo_locations_records" with "dma_fifos" and "stream_fifos"; nothing for an empty table.
  void write(JsonDocument& document, JsonValue& value) const;

 private:
  std::size_t countOfKind(FifoLocationsRecord::Kind kind) const;

  RecordMap m_records;
};

// The FIFO records of a port, by name. Names are kept as given, duplicates included.
class FifoLocationsConstr : public BaseConstraint {
 public:
  explicit FifoLocationsConstr(std::string const& objName);

  void clone(ConstrHandler& target, BaseNameResolver const* resolver) const override;
  void write(JsonDocument& document, JsonValue& value, BaseNameResolver const* resolver) const override;
  void offsetColumn(int n) override;
  std::string str() const override;

  virtual std::vector<std::string> const& getFifoLocationsRecordNames() const;
  virtual void getFifoLocationsRecordNames(std::vector<std::string>& out) const;
  // Empty for an index beyond the end.
  virtual std::string getFifoLocationsRecordName(unsigned int index) const;
  virtual void addFifoLocationsRecordNames(std::vector<std::string> const& names);
  virtual void setFifoLocationsRecordNames(std::vector<std::string> const& names);
  virtual bool hasFifoLocationsRecordNames() const;
  virtual bool containsFifoRecord(std::string const& name) const;

 private:
  DefaultedAttr m_recordNames;
};

}  // namespace constraints
}  // namespace kpe

#endif
