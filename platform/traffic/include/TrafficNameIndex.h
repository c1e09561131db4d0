#ifndef TARVO_TRAFFICNAMEINDEX_H
#define TARVO_TRAFFICNAMEINDEX_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace HrdIPToolCntr {

class TrafficLInst;

// The instances of a traffic specification by name. Each distinct name has one entry that holds
// every role it plays, in a flat table with open addressing: a look-up hashes the name once and
// mostly compares it once, where a map per role would hash it and chase a node per role asked.
class TrafficNameIndex {
 public:
  enum Role { Master, Slave, KpeInstance, MasterConnection, SlaveConnection, kRoleCount };

  // Makes `instance` the one of `role` under `name`; with `replace` false, one that is already
  // there stays.
  void set(std::string const& name, Role role, TrafficLInst* instance, bool replace);
  // The instance of `role` under `name`; null when there is none.
  TrafficLInst* find(std::string_view name, Role role) const;

 private:
  struct Entry {
    std::string name;
    std::array<TrafficLInst*, kRoleCount> instances{};
  };
  struct Slot {
    std::uint32_t hash = 0;
    std::uint32_t entryPlusOne = 0;  // 0: empty
  };

  // The place of the slot that holds `name`, or of the empty slot where it would go.
  std::size_t slotOf(std::string_view name, std::uint32_t hash) const;
  void grow();

  std::vector<Entry> m_entries;
  std::vector<Slot> m_slots;  // a power of two in size, at most half full
};

}  // namespace HrdIPToolCntr

#endif
