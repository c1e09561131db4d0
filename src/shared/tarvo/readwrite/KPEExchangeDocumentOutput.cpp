#include "KPEExchangeDocumentOutput.h"

#include "ComMsgMgr.h"

bool KPEExchangeDocumentOutput::write(std::ostream& out, JsonDocumentFrame::Value const& doc,
                                      std::string const& schemaPath) {
  std::unique_ptr<rapidjson::SchemaDocument> const schema =
      JsonDocumentFrame::loadSchema(schemaPath, JsonDocumentFrame::Opener::PlainFile);
  JsonDocumentFrame::SchemaViolation violation;
  if (JsonDocumentFrame::writeValidated(out, doc, *schema, rapidjson::kFormatDefault, &violation)) return true;
  reportViolation(violation);
  return false;
}

void KPEExchangeDocumentOutput::reportViolation(JsonDocumentFrame::SchemaViolation const& violation) {
  ComMsgMgr::sendMsg::eval(3, __FILE__, __LINE__, "tarvo", ComMsgMgr::MSG_ERROR, "@75-645@%s%s%s",
                           violation.schemaPointer, violation.keyword, violation.documentPointer);
}
