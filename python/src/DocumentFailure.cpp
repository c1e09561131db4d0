#include "DocumentFailure.h"

#include "HEXAll.h"

void DocumentFailure::guard(std::string const& file, std::function<void()> const& work) {
  try {
    work();
  } catch (HEXAll const& error) {
    ComMsgMgrInstance const& message = error.getMessage();
    DocumentFailure failure(error.what(), file);
    failure.id = message.getId();
    failure.text = message.getText();
    for (auto const& meta : message.getMetaTypes()) {
      if (meta.type == ComMsgMgr::META_FILE) failure.file = meta.value;
      if (meta.type == ComMsgMgr::META_LINE) failure.line = std::stoi(meta.value);
      if (meta.type == ComMsgMgr::META_COLUMN) failure.column = std::stoi(meta.value);
    }
    throw failure;
  } catch (DocumentFailure const&) {
    throw;
  } catch (std::bad_alloc const&) {
    throw;
  } catch (std::exception const& error) {
    // Readers report some failures (a solution made for another device, a bad option) with
    // standard exceptions and no message id.
    DocumentFailure failure(error.what(), file);
    failure.text = error.what();
    throw failure;
  }
}
