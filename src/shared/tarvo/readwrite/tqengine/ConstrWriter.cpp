#include "ConstrWriter.h"

#include <fstream>
#include <ostream>
#include <vector>

#include "BaseNameResolver.h"
#include "ComMsgMgr.h"
#include "ComMsgMgrInstance.h"
#include "ConstrDocumentKeys.h"
#include "ConstrHandler.h"
#include "ConstrWriteSupport.h"
#include "HCRapidJsonReadWriteUtils.h"
#include "HEXAlgException.h"
#include "HEXAll.h"
#include "HUTEnv.h"
#include "HUTFile.h"
#include "JsonDocumentFrame.h"

namespace kpe {
namespace constraints {

typedef ConstrDocumentKeys Keys;

namespace {

ComMsgMgr::MsgMask const kInfo = ComMsgMgr::MsgMask(0x4000000);
ComMsgMgr::MsgMask const kError = ComMsgMgr::MsgMask(0x20000000);

[[noreturn]] void raiseWithFile(ComMsgMgrInstance message, std::string const& fileName) {
  message.attachMetaType(0, ComMsgMgr::META_FILE, "", fileName);
  throw HEXAll(message);
}

// `relative` below the first data directory that holds it, canonical; empty unless a file.
std::string installedFile(std::string const& relative) {
  std::string const candidate = HUTEnv::getQDSDataDir(relative) + HUTFile::getDirSeparator() + relative;
  std::string canonical = candidate;
  HUTFile(candidate).getCanonicalName(canonical);
  return HUTFile(canonical).isFile() ? canonical : std::string();
}

// Drops the document and schema of a write however it ends.
class WriteScope {
 public:
  explicit WriteScope(std::function<void()> reset) : m_reset(std::move(reset)) {}
  ~WriteScope() { m_reset(); }
  WriteScope(WriteScope const&) = delete;
  WriteScope& operator=(WriteScope const&) = delete;

 private:
  std::function<void()> m_reset;
};

// Builds each object's members in a reused scratch pool and copies the finished object into
// the document. An object built member by member takes room for sixteen members, and every
// outgrown array stays behind in its pool; the copy holds exactly its members, which makes
// the document a fraction of the size, and the scratch pool is emptied for the next object.
class CompactBuilder {
 public:
  CompactBuilder() : m_buffer(kScratchBytes), m_pool(m_buffer.data(), m_buffer.size()), m_scratch(&m_pool) {}
  CompactBuilder(CompactBuilder const&) = delete;
  CompactBuilder& operator=(CompactBuilder const&) = delete;

  // The object that `fill(scratch, object)` adds members to, copied into `document`'s pool.
  template <class Fill>
  JsonValue build(JsonDocument& document, Fill const& fill) {
    JsonValue compact;
    {
      JsonValue object(rapidjson::kObjectType);
      fill(m_scratch, object);
      compact = JsonValue(object, document.GetAllocator());
    }
    m_pool.Clear();
    return compact;
  }

  // The members that `fill` adds, moved one by one onto `target`.
  template <class Fill>
  void addMembers(JsonValue& target, JsonDocument& document, Fill const& fill) {
    JsonValue compact = build(document, fill);
    for (auto& member : compact.GetObject())
      target.AddMember(member.name, member.value, document.GetAllocator());
  }

 private:
  // Room for the constraints of one object; a larger one takes chunks from the heap.
  static std::size_t const kScratchBytes = 64 * 1024;

  std::vector<char> m_buffer;
  JsonDocument::AllocatorType m_pool;
  JsonDocument m_scratch;
};

}  // namespace

ConstrWriter::ConstrWriter(ConstrHandler const& store)
    : m_ownedResolver(new BaseNameResolver()), m_store(&store), m_resolver(m_ownedResolver.get()) {}

ConstrWriter::ConstrWriter(ConstrHandler const& store, BaseNameResolver const& resolver)
    : m_store(&store), m_resolver(&resolver) {}

ConstrWriter::~ConstrWriter() = default;

void ConstrWriter::setSchema(std::string const& file) {
  m_schemaOverride = file;
}

void ConstrWriter::write(std::ostream& out, std::string const& name, bool validate) {
  writeStream(out, name, validate, Content::AllSections);
}

void ConstrWriter::write(std::string const& file, bool validate) {
  writeFile(file, validate, Content::AllSections);
}

void ConstrWriter::writeAreaGroupConstrs(std::ostream& out, std::string const& name, bool validate) {
  writeStream(out, name, validate, Content::GlobalOnly);
}

void ConstrWriter::writeAreaGroupConstrs(std::string const& file, bool validate) {
  writeFile(file, validate, Content::GlobalOnly);
}

std::string ConstrWriter::findInstalledSchemaFile() {
  std::string const primary = installedFile("kpetools_constr_schema.json");
  if (!primary.empty()) {
    return primary;
  }
  std::string const& separator = HUTFile::getDirSeparator();
  return installedFile("parts" + separator + "zorvex" + separator + "common" + separator + "tellura" + separator +
                       "KPEConstrSchema.json");
}

// An empty store writes nothing at all, and so needs no schema.
void ConstrWriter::writeStream(std::ostream& out, std::string const& name, bool validate, Content content) {
  if (m_store->empty()) {
    return;
  }
  reset();
  WriteScope const scope([this]() { reset(); });
  if (out.rdstate() != std::ios_base::goodbit) {
    raiseWithFile(ComMsgMgrInstance::createInstance::eval(1, __FILE__, __LINE__, "tarvo", kError, "@75-573@%s", name),
                  name);
  }
  m_fileName = name;
  bool const announce = content == Content::AllSections;
  if (announce) {
    ComMsgMgr::sendMsg::eval(1, __FILE__, __LINE__, "tarvo", kInfo, "@75-4195@%s", name);
  }
  std::string const schemaPath = getSchemaFile();
  if (announce) {
    ComMsgMgr::sendMsg::eval(1, __FILE__, __LINE__, "tarvo", kInfo, "@75-4193@%s", schemaPath);
  }
  loadSchema(schemaPath);
  buildDocument(content);
  emit(out, validate);
}

// An empty store removes the file, so that no stale constraints stay behind.
void ConstrWriter::writeFile(std::string const& file, bool validate, Content content) {
  if (m_store->empty()) {
    HUTFile(file).rm();
    return;
  }
  std::ofstream out(file.c_str(), std::ios_base::out | std::ios_base::trunc);
  writeStream(out, file, validate, content);
}

void ConstrWriter::reset() {
  m_schema.reset();
  m_doc.reset();
}

std::string ConstrWriter::getSchemaFile() const {
  return m_schemaOverride.empty() ? findInstalledSchemaFile() : m_schemaOverride;
}

void ConstrWriter::loadSchema(std::string const& path) {
  if (path.empty()) {
    throw HEXAll(ComMsgMgrInstance::createInstance::eval(0, __FILE__, __LINE__, "tarvo", kError, "@75-395@"));
  }
  HCRapidJsonReadWriteUtils::validateSchemaFile(path);
  m_schema = JsonDocumentFrame::loadSchema(path, JsonDocumentFrame::Opener::PlainFile);
}

void ConstrWriter::buildDocument(Content content) {
  m_doc.reset(new JsonDocument(rapidjson::kObjectType));
  if (content == Content::AllSections) {
    if (m_store->isToolGenerated()) {
      writesupport::addTrue(*m_doc, Keys::isToolGenerated, *m_doc);
    }
    if (m_store->isSoft()) {
      writesupport::addTrue(*m_doc, Keys::isSoft, *m_doc);
    }
    addObjectSection(Keys::nodeConstraints, BaseConstraint::NODE);
    addObjectSection(Keys::portConstraints, BaseConstraint::PORT);
    addObjectSection(Keys::netConstraints, BaseConstraint::NET);
  }
  addGlobalSection();
}

// One member per object that the resolver names, in order of the object's first constraint.
void ConstrWriter::addObjectSection(char const* key, BaseConstraint::ObjectType objType) {
  JsonDocument& document = getDocument();
  std::vector<std::string> names;
  JsonValue section(rapidjson::kObjectType);
  CompactBuilder builder;
  switch (objType) {
    case BaseConstraint::NODE:
      m_store->getAllConstrainedNodes(names);
      break;
    case BaseConstraint::PORT:
      builder.addMembers(section, document, [this](JsonDocument& scratch, JsonValue& object) {
        m_store->getRecords().write(scratch, object);
      });
      m_store->getAllConstrainedPorts(names);
      break;
    default:
      m_store->getAllConstrainedNets(names);
      break;
  }
  for (std::string const& name : names) {
    std::string const documentName = objType == BaseConstraint::NODE   ? m_resolver->getDocumentNodeName(name)
                                     : objType == BaseConstraint::PORT ? m_resolver->getDocumentPortName(name)
                                                                       : m_resolver->getDocumentNetName(name);
    if (documentName.empty()) {
      continue;
    }
    ConstrHandler::ConstrList constraints;
    m_store->getConstrs(name, constraints);
    JsonValue object = builder.build(document, [&](JsonDocument& scratch, JsonValue& members) {
      for (BaseConstraint const* constraint : constraints) {
        constraint->write(scratch, members, m_resolver);
      }
    });
    writesupport::addMember(section, documentName, object, document);
  }
  if (!section.ObjectEmpty()) {
    writesupport::addMember(document, key, section, document);
  }
}

// Each group adds its own member, so a kind's key repeats once per group.
void ConstrWriter::addGlobalSection() {
  JsonDocument& document = getDocument();
  ConstrHandler::ConstrList groups;
  m_store->getConstrs(BaseConstraint::GLOBAL, groups);
  JsonValue section(rapidjson::kObjectType);
  CompactBuilder builder;
  for (BaseConstraint const* group : groups) {
    builder.addMembers(section, document,
                       [&](JsonDocument& scratch, JsonValue& members) { group->write(scratch, members, m_resolver); });
  }
  if (!section.ObjectEmpty()) {
    writesupport::addMember(document, Keys::globalConstraints, section, document);
  }
}

// The stream is flushed whatever the outcome; on a mismatch the valid part stays in it.
void ConstrWriter::emit(std::ostream& out, bool validate) {
  if (!validate) {
    JsonDocumentFrame::writePretty(out, getDocument(), rapidjson::kFormatSingleLineArray);
    out.flush();
    return;
  }
  JsonDocumentFrame::SchemaViolation violation;
  bool const valid =
      JsonDocumentFrame::writeValidated(out, getDocument(), *m_schema, rapidjson::kFormatSingleLineArray, &violation);
  out.flush();
  if (!valid) {
    raiseWithFile(
        ComMsgMgrInstance::createInstance::eval(4, __FILE__, __LINE__, "tarvo", kError, "@75-572@%s%s%s%s", m_fileName,
                                                violation.schemaPointer, violation.keyword, violation.documentPointer),
        m_fileName);
  }
}

JsonDocument& ConstrWriter::getDocument() {
  if (!m_doc) {
    throw HEXAlgException("ConstrWriter::getDocument() - m_doc is null");
  }
  return *m_doc;
}

JsonDocument const& ConstrWriter::getDocument() const {
  if (!m_doc) {
    throw HEXAlgException("ConstrWriter::getDocument() - m_doc is null");
  }
  return *m_doc;
}

JsonDocument::AllocatorType& ConstrWriter::getAllocator() {
  if (!m_doc) {
    throw HEXAlgException("ConstrWriter::getAllocator() - m_doc is null");
  }
  return m_doc->GetAllocator();
}

JsonDocument::AllocatorType const& ConstrWriter::getAllocator() const {
  if (!m_doc) {
    throw HEXAlgException("ConstrWriter::getAllocator() - m_doc is null");
  }
  return m_doc->GetAllocator();
}

}  // namespace constraints
}  // namespace kpe
