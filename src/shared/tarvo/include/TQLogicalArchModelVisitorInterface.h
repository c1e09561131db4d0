#ifndef TARVO_TQLOGICALARCHMODELVISITORINTERFACE_H
#define TARVO_TQLOGICALARCHMODELVISITORINTERFACE_H

namespace Tarvo {
namespace Frameworks {

class TQLogicalArchModel;
class TQLogicalArchLInst;
class TQLogicalConnection;
class TQLogicalPort;

// Walks a model: instances, then each connection's ports and the connection, then the model.
// Every operation does nothing unless overridden.
class TQLogicalArchModelVisitorInterface {
 public:
  virtual ~TQLogicalArchModelVisitorInterface() = default;
  virtual void visitModel(TQLogicalArchModel const& /*model*/) const {}
  virtual void visitInstance(TQLogicalArchLInst const& /*instance*/) const {}
  virtual void visitConnection(TQLogicalConnection const& /*connection*/) const {}
  virtual void visitPort(TQLogicalPort const& /*port*/) const {}
};

}  // namespace Frameworks
}  // namespace Tarvo

#endif
