#ifndef TARVO_TQLOGICALARCHMODELRENAMEINTERFACE_H
#define TARVO_TQLOGICALARCHMODELRENAMEINTERFACE_H

#include <string>

namespace Tarvo {
namespace Frameworks {

class TQLogicalArchModel;
class TQLogicalArchLInst;
class TQLogicalConnection;
class TQLogicalPort;

// Gives objects of a model new names. An implementation writes the new name into the object
// it is given; the returned text is for its own callers, the model drops it.
class TQLogicalArchModelRenameInterface {
 public:
  virtual ~TQLogicalArchModelRenameInterface() = default;
  virtual std::string renameModel(TQLogicalArchModel& model) = 0;
  virtual std::string renameInstance(TQLogicalArchLInst& instance) = 0;
  virtual std::string renameConnection(TQLogicalConnection& connection) = 0;
  virtual std::string renamePort(TQLogicalPort& port) = 0;
};

}  // namespace Frameworks
}  // namespace Tarvo

#endif
