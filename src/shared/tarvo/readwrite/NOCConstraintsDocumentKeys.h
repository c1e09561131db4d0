#ifndef TARVO_NOCCONSTRAINTSDOCUMENTKEYS_H
#define TARVO_NOCCONSTRAINTSDOCUMENTKEYS_H

#include <string>

// The keys of the NoC placement constraints document, shared by its reader and writer.
struct NOCConstraintsDocumentKeys {
  static inline std::string const placement = "Placement";
  static inline std::string const logicalInstance = "LogicalInstance";
  static inline std::string const physicalInstance = "PhysicalInstance";
  static inline std::string const isSoft = "IsSoft";
};

#endif
