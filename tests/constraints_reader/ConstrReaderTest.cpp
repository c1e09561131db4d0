#include <gtest/gtest.h>

#include <boost/filesystem.hpp>

#include <sstream>

#include "AttrConstr.h"
#include "BaseNameResolver.h"
#include "ColocationConstraints.h"
#include "ConstrHandler.h"
#include "ConstrReader.h"
#include "ConstrWriter.h"
#include "GroupConstraints.h"
#include "HEXAlgException.h"
#include "HEXAll.h"
#include "LocationConstraints.h"
#include "TestSupport.h"

using namespace kpe::constraints;
using Strings = std::vector<std::string>;

namespace {

std::string documentPath(std::string const& name) {
  return tarvo_test::dataPath("constraints_reader/" + name);
}

// The name a scanned source records for a file given by its absolute path.
std::string recordedName(std::string const& path) {
  return boost::filesystem::path(path).lexically_relative(boost::filesystem::current_path()).string();
}

std::string sourceText(SrcInfo const& info) {
  return std::to_string(info.kind) + " " + info.file + ":" + std::to_string(info.line) + ":" +
         std::to_string(info.column);
}

std::string rangesText(std::vector<PhysicalRange> const& ranges) {
  std::string text;
  for (PhysicalRange const& range : ranges)
    text += "[" + range.str() + "]";
  return text;
}

class ConstrReaderTest : public ::testing::Test {
 protected:
  ~ConstrReaderTest() override { store.clear(); }

  // Reads without validation against a schema that takes any object.
  void readLoose(std::string const& name, BaseNameResolver const* resolver = nullptr) {
    std::unique_ptr<ConstrReader> reader(resolver ? new ConstrReader(store, *resolver) : new ConstrReader(store));
    reader->setSchema(documentPath("any_schema.json"));
    reader->read(documentPath(name), false);
  }

  ConstrHandler store;
  tarvo_test::MessageCapture messages;
};

}  // namespace

TEST_F(ConstrReaderTest, NodeKeysReachTheStoreByTheirForms) {
  std::string const file = documentPath("node_kinds.json");
  readLoose("node_kinds.json");

  EXPECT_EQ("tile_7_2", store.getTileConstr("n_named")->getName());
  MemConstr const* mem = store.getMemConstr("n_named");
  ASSERT_NE(nullptr, mem);
  EXPECT_EQ("(1,2,-1,-1)", mem->getPing().str());
  EXPECT_EQ("(-1,-1,3,64)", mem->getPong().str());

  AttrConstr const* margin = store.getAttrConstr("n_named", "margin");
  ASSERT_NE(nullptr, margin);
  EXPECT_EQ("KPE.MARGIN", margin->getConstrName());
  EXPECT_EQ(4, margin->getIntValue());
  EXPECT_EQ(0.5, store.getAttrConstr("n_named", "KPE.UTILIZATION")->getDoubleValue());
  EXPECT_EQ("fast", store.getAttrConstr("n_named", "kind")->getStringValue());
  EXPECT_TRUE(store.getAttrConstr("n_named", "pinned")->getBoolValue());
  // Arrays, null and integers beyond 32 bits are dropped without a word.
  EXPECT_EQ(nullptr, store.getAttrConstr("n_named", "sizes"));
  EXPECT_EQ(nullptr, store.getAttrConstr("n_named", "huge"));
  EXPECT_EQ(nullptr, store.getAttrConstr("n_named", "nothing"));

  // A row alone still makes a tile; a channel without a column makes no shim.
  TileConstr const* rowOnly = store.getTileConstr("n_row");
  ASSERT_NE(nullptr, rowOnly);
  EXPECT_FALSE(rowOnly->hasColumn());
  EXPECT_EQ(3, rowOnly->getRow());
  EXPECT_EQ(nullptr, store.getShimConstr("n_row"));
  EXPECT_EQ("(-1,-1,1,16)", store.getReservedMemoryConstr("n_row")->getAddress().str());

  // A tile type alone makes nothing; an empty address makes no reserved memory.
  EXPECT_EQ(nullptr, store.getTileConstr("n_type"));
  EXPECT_EQ(nullptr, store.getReservedMemoryConstr("n_type"));
  EXPECT_EQ(4, store.getShimConstr("n_type")->getColumn());
  EXPECT_EQ(1, store.getShimConstr("n_type")->getChannel());
  EXPECT_EQ(PhysicalSpec::MEM, store.getTileConstr("n_bad")->getPhysicalType());

  for (char const* node : {"n_type", "n_bad", "n_empty"})
    EXPECT_EQ(nullptr, store.getMemConstr(node)) << node;
  EXPECT_EQ((Strings{"75-584(" + file + "|n_type)", "75-579(" + file + "|n_bad)", "75-574(" + file + "|n_empty)"}),
            messages.summary());
  EXPECT_EQ(ComMsgMgr::MSG_CRITICAL_WARNING, messages.messages().front().getMask());
}

TEST_F(ConstrReaderTest, PortKeysAndFifoRecordsReachTheStore) {
  std::string const file = documentPath("port_kinds.json");
  readLoose("port_kinds.json");

  auto const* dma = dynamic_cast<DmaFifoRecord const*>(store.getFifoLocationsRecord("d0"));
  ASSERT_NE(nullptr, dma);
  EXPECT_EQ("mem=(2,1)", dma->getPhysicalSpec().str());
  EXPECT_EQ(128, dma->getSize());
  EXPECT_EQ(64, dma->getPhysicalSpec().getOffset());
  EXPECT_EQ(2, dma->getPhysicalSpec().getBankId());
  auto const* stream = dynamic_cast<StreamFifoRecord const*>(store.getFifoLocationsRecord("s0"));
  ASSERT_NE(nullptr, stream);
  EXPECT_EQ(1, stream->getPhysicalSpec().getChannel());
  EXPECT_EQ(2u, store.getFifoLocationsRecords().size());

  BufferConstr const* buffers = store.getBufferConstr("p_abs");
  ASSERT_NE(nullptr, buffers);
  EXPECT_EQ("(1,3,-1,-1)", buffers->getPong().str());
  EXPECT_EQ("(-1,-1,0,8)", buffers->getRtpSelector().str());
  EXPECT_EQ(" stream_chan(p_abs)=Absolute:(2,0,3,North)", store.getStreamChannelConstr("p_abs")->str());
  PortLocConstr const* portLoc = store.getPortLocConstr("p_abs");
  EXPECT_EQ(PhysicalSpec::SHIM, portLoc->getPhysicalType());
  EXPECT_EQ(6, portLoc->getColumn());
  EXPECT_FALSE(portLoc->hasRow());
  EXPECT_EQ((Strings{"d0", "s0"}), store.getFifoLocationsConstr("p_abs")->getFifoLocationsRecordNames());

  EXPECT_EQ(" stream_chan(p_rel)=Relative:(2,1,West)", store.getStreamChannelConstr("p_rel")->str());
  EXPECT_EQ("shim_4", store.getPortLocConstr("p_rel")->getName());
  EXPECT_EQ(0, store.getPortLocConstr("p_rel")->getChannel());
  ColocatedPortsConstr const* ports = store.getColocatedPortsConstr("p_rel");
  ASSERT_NE(nullptr, ports);
  EXPECT_EQ((Strings{"p_abs", "p_x"}), ports->getColocatedPortNames());
  EXPECT_EQ((Strings{"p_abs"}), ports->getColocatedSoftPorts());
  EXPECT_EQ((Strings{"p_y"}), ports->getNotColocatedPortNames());
  EXPECT_EQ((Strings{"p_z"}), ports->getExclusiveColocatedSoftPorts());
  EXPECT_EQ((Strings{"p_abs"}), store.getColocatedDmaConstr("p_rel")->getColocatedPortNames());
  // On a port the colocated-node list is made even when it is empty.
  ASSERT_NE(nullptr, store.getColocatedNodesConstr("p_rel"));
  EXPECT_TRUE(store.getColocatedNodesConstr("p_rel")->getColocatedNodeNames().empty());
  EXPECT_EQ(BaseConstraint::PORT, store.getAttrConstr("p_rel", "lanes")->getObjType());

  EXPECT_EQ(nullptr, store.getStreamChannelConstr("p_none"));
  EXPECT_EQ(nullptr, store.getPortLocConstr("p_none"));
  EXPECT_EQ(nullptr, store.getBufferConstr("p_none"));
  EXPECT_EQ((Strings{"75-584(" + file + "|p_none)"}), messages.summary());
}

TEST_F(ConstrReaderTest, SourcesComeFromMembersDirectlyBehindTheirKeyOrFromTheFile) {
  std::string const file = documentPath("sources.json");
  std::string const scanned = "0 " + recordedName(file) + ":";
  readLoose("sources.json");

  EXPECT_EQ("1 a.cst:10:4", sourceText(store.getTileConstr("a")->getSrcInfo()));
  // The shim's source member stands behind another key, so the shim is searched for.
  EXPECT_EQ(scanned + "6:7", sourceText(store.getShimConstr("a")->getSrcInfo()));
  EXPECT_EQ(scanned + "7:7", sourceText(store.getAttrConstr("a", "margin")->getSrcInfo()));
  ColocatedNodesConstr const* colocated = store.getColocatedNodesConstr("a");
  EXPECT_EQ(scanned + "9:7", sourceText(colocated->getSrcInfo()));
  EXPECT_EQ("1 c.cst:30:6", sourceText(colocated->getNotColocatedSrcInfo()));
  // A source member without a file changes nothing.
  EXPECT_EQ("2 :0:0", sourceText(store.getAttrConstr("b", "margin")->getSrcInfo()));

  ColocatedPortsConstr const* ports = store.getColocatedPortsConstr("p");
  EXPECT_EQ(scanned + "20:7", sourceText(ports->getExclusiveColocatedSrcInfo()));
  EXPECT_EQ(scanned + "21:7", sourceText(ports->getSrcInfo()));

  // A net key takes its source member from anywhere in its object.
  EXPECT_EQ("1 n.cst:7:1", sourceText(store.getAttrConstr("net1", "width")->getSrcInfo()));
  EXPECT_EQ(scanned + "28:7", sourceText(store.getAttrConstr("net1", "depth")->getSrcInfo()));

  EXPECT_EQ(scanned + "32:28", sourceText(store.getAreaGroupConstr("g1")->getSrcInfo()));
  EXPECT_EQ("1 g.cst:40:2", sourceText(store.getInstGroupConstr("i1")->getSrcInfo()));
  EXPECT_TRUE(messages.summary().empty());
}

TEST_F(ConstrReaderTest, AreaGroupsReadPlaceTextsPairsAndColumns) {
  std::string const file = documentPath("groups.json");
  readLoose("groups.json");

  AreaGroupConstr const* area = store.getAreaGroupConstr("g");
  ASSERT_NE(nullptr, area);
  EXPECT_EQ(
      "[low=tile=(1,2) high=tile=(3,4)][low=tile=(3,-1)][low=tile=(5,6)][low=tile=(7,8) high=tile=(9,10)]"
      "[low=tile=(tile_a)][low=tile=(5,-1)][low=tile=(05)][low=tile=(1,2)]"
      "[low=shim=(0,1) high=shim=(4,1)][low=shim=(2,3)][low=mem=(1,1) high=mem=(2,2)][low=tile=(8,-1)]",
      rangesText(area->getPhysicalRanges()));
  EXPECT_EQ((Strings{"n1", "n2", "n3"}), area->getNodeNames());
  // The flags of a repeated group are those of its first occurrence.
  EXPECT_TRUE(area->isExclude());
  EXPECT_FALSE(area->isSoft());

  EXPECT_TRUE(store.getInstGroupConstr("i")->isIsomorphic());
  EXPECT_EQ((Strings{"n2"}), store.getDependentRoutingGroupConstr("d")->getNodeNames());
  EXPECT_EQ("ref", store.getIsomorphicGraphGroupConstr("iso")->getReferenceGraph());
  EXPECT_EQ((Strings{"s1", "s2"}), store.getIsomorphicGraphGroupConstr("iso")->getStampedGraphs());
  EXPECT_EQ(4u, store.size());

  EXPECT_EQ((Strings{"75-647(:(2,2))", "75-596(" + file + "|g|:(2,2))", "75-646((1,2)", "75-596(" + file + "|g|(a,b))",
                     "75-588(" + file + "|g)", "75-595(" + file + "|g|(x,y))", "75-747(" + file + "|g)"}),
            messages.summary());
}

TEST_F(ConstrReaderTest, RelativeNodesKeepWhatTheirTextsGive) {
  readLoose("relative.json");
  RelativeNodesConstr const* relative = store.getRelativeNodesConstr("r");
  ASSERT_NE(nullptr, relative);
  std::string offsets;
  for (auto const& node : relative->getNodesWithOffset())
    offsets += node.first + "(" + std::to_string(node.second.x) + "," + std::to_string(node.second.y) + ")";
  EXPECT_EQ("a(1,-2)c(3,-9999)d(-9999,4)e(-9999,-9999)f(5,-9999)", offsets);
  EXPECT_EQ((Strings{"75-880(b:)", "75-880(:X=1)", "75-646((X=5)"}), messages.summary());
  EXPECT_EQ(ComMsgMgr::MSG_ERROR, messages.messages().front().getMask());
}

namespace {

// Maps the document's doc_n to design_n, knows no ghost, and lets "pair" stand for two nodes.
class DesignResolver : public BaseNameResolver {
 public:
  explicit DesignResolver(std::string scope) : m_scope(std::move(scope)) {}
  std::string getScopeName() const override { return m_scope; }
  std::string resolveNodeName(std::string const& name) const override {
    if (name == "ghost") return "";
    return name == "doc_n" ? "design_n" : name;
  }
  std::string resolvePortName(std::string const& name) const override { return name == "p_ghost" ? "" : name; }
  std::string resolveNetName(std::string const& name) const override { return name == "n_ghost" ? "" : name; }

 protected:
  void resolveNodePattern(std::string const& name, std::vector<std::string>& out) const override {
    if (name != "pair") return BaseNameResolver::resolveNodePattern(name, out);
    out.push_back("pair_0");
    out.push_back("pair_1");
  }

 private:
  std::string m_scope;
};

}  // namespace

TEST_F(ConstrReaderTest, NamesGoThroughTheResolverOneItemAtATime) {
  DesignResolver const resolver("top");
  readLoose("resolve.json", &resolver);

  ColocatedNodesConstr const* colocated = store.getColocatedNodesConstr("design_n");
  ASSERT_NE(nullptr, colocated);
  EXPECT_EQ((Strings{"pair_0", "pair_1", "x"}), colocated->getColocatedNodeNames());
  EXPECT_EQ((Strings{"pair_0", "pair_1"}), colocated->getColocatedSoftNodes());
  RelativeNodesConstr const* relative = store.getRelativeNodesConstr("design_n");
  ASSERT_NE(nullptr, relative);
  EXPECT_EQ(2u, relative->getNodesWithOffset().size());
  EXPECT_EQ(1, relative->getNodeOffset("pair_1").x);
  EXPECT_EQ(2u, store.size());

  EXPECT_EQ((Strings{"75-407(ghost)", "75-412(ghost)", "75-497(p_ghost|top)", "75-408(n_ghost)"}), messages.summary());
  // The reader's own messages carry the place of the object in the file.
  std::vector<ComMsgMgrInstance::MetaAnnotation> const& metas = messages.messages().front().getMetaTypes();
  ASSERT_EQ(3u, metas.size());
  EXPECT_EQ(documentPath("resolve.json"), metas[0].value);
  EXPECT_EQ("3", metas[1].value);
  EXPECT_EQ("5", metas[2].value);

  store.clear();
  messages.clear();
  DesignResolver const unscoped("");
  readLoose("resolve.json", &unscoped);
  EXPECT_EQ("75-498(p_ghost)", messages.summary()[2]);
}

namespace {

// A store that sends tool-generated documents to a child store of their hardness.
class StoreWithChildren : public ConstrHandler {
 public:
  explicit StoreWithChildren(bool haveChildren = true) : m_haveChildren(haveChildren) {}
  ~StoreWithChildren() override {
    hard.clear();
    soft.clear();
  }
  bool hasToolGeneratedStores() const override { return true; }
  ConstrHandler* getToolGeneratedStore(bool isSoft) override {
    if (!m_haveChildren) return nullptr;
    return isSoft ? &soft : &hard;
  }

  ConstrHandler hard;
  ConstrHandler soft;

 private:
  bool m_haveChildren;
};

}  // namespace

TEST_F(ConstrReaderTest, ToolGeneratedDocumentsGoToTheChildStoreOfTheirHardness) {
  std::string const file = documentPath("tool_generated.json");
  std::string const schema = documentPath("any_schema.json");
  StoreWithChildren parent;
  ConstrReader reader(parent);
  reader.setSchema(schema);
  reader.read(file, false);
  EXPECT_TRUE(parent.empty());
  EXPECT_TRUE(parent.hard.empty());
  ASSERT_NE(nullptr, parent.soft.getTileConstr("n"));
  EXPECT_EQ((Strings{"75-648(" + file + "|soft)", "75-4193(" + schema + ")"}), messages.summary());

  // The child reads the file again by name, which a stream's name need not be.
  std::istringstream in(tarvo_test::readFile(file));
  try {
    reader.read(in, "stream.json", false);
    FAIL() << "a name that is no file cannot be read again";
  } catch (HEXAll const& error) {
    EXPECT_EQ("8-100", error.getMessage().getId());
  }

  // "isSoft" counts only as the JSON value true.
  tarvo_test::TempDir dir;
  std::string const hardFile = dir.file("hard.json");
  tarvo_test::writeFile(hardFile,
                        "{ \"isToolGenerated\": true, \"isSoft\": \"yes\", \"NodeConstraints\": "
                        "{ \"h\": { \"margin\": 1 } } }");
  reader.read(hardFile, false);
  EXPECT_NE(nullptr, parent.hard.getAttrConstr("h", "margin"));
  EXPECT_EQ(nullptr, parent.soft.getAttrConstr("h", "margin"));

  // Without child stores such a document is read as any other.
  ConstrReader plain(store);
  plain.setSchema(schema);
  plain.read(file, false);
  EXPECT_NE(nullptr, store.getTileConstr("n"));

  StoreWithChildren orphan(false);
  ConstrReader orphanReader(orphan);
  orphanReader.setSchema(schema);
  try {
    orphanReader.read(file, false);
    FAIL() << "a missing child store is a caller's error";
  } catch (HEXAlgException const& error) {
    EXPECT_STREQ("ConstrReader::readConstraints() - could not get the child tool generated constraint handler",
                 error.what());
  }
}

TEST_F(ConstrReaderTest, AreaGroupReadingTakesOnlyTheGlobalSection) {
  ConstrReader reader(store);
  reader.setSchema(documentPath("any_schema.json"));
  reader.readAreaGroupConstrs(documentPath("sources.json"), false);
  EXPECT_EQ(2u, store.size());
  EXPECT_NE(nullptr, store.getAreaGroupConstr("g1"));

  // Nothing at all leaves the store as it was.
  std::istringstream empty("{ \"isSoft\": \"yes\" }");
  reader.read(empty, "empty.json", false);
  EXPECT_EQ(2u, store.size());
  EXPECT_TRUE(messages.summary().empty());
}

TEST_F(ConstrReaderTest, PositionsOfStreamsWithoutAFileStayAtZero) {
  std::string const text = "{ \"NodeConstraints\": {\n \"n\": {\n \"tile\": { \"name\": \"t\" },\n \"margin\": 1 } } }";
  ConstrReader reader(store);
  reader.setSchema(documentPath("any_schema.json"));
  std::istringstream unnamed(text);
  reader.read(unnamed, "", false);
  EXPECT_EQ((Strings{"75-857()", "75-857()"}), messages.summary());
  EXPECT_EQ(ComMsgMgr::MSG_WARNING, messages.messages().front().getMask());
  EXPECT_EQ("0 :0:0", sourceText(store.getTileConstr("n")->getSrcInfo()));

  // A name that is no file is passed over quietly, and recorded by its last step.
  messages.clear();
  std::istringstream named(text);
  reader.read(named, "no/such/dir/cons.json", false);
  EXPECT_TRUE(messages.summary().empty());
  EXPECT_EQ("0 cons.json:0:0", sourceText(store.getTileConstr("n")->getSrcInfo()));
}

TEST_F(ConstrReaderTest, FailuresLeaveByExceptionWithTheirMessages) {
  ConstrReader reader(store);
  auto failureOf = [&](std::function<void()> const& read) {
    try {
      read();
    } catch (HEXAll const& error) {
      return tarvo_test::joinedOf(error.getMessage());
    }
    return std::string("no failure");
  };

  std::istringstream failed("{}");
  failed.setstate(std::ios_base::failbit);
  EXPECT_EQ("8-100|in.json", failureOf([&] { reader.read(failed, "in.json", true); }));
  EXPECT_EQ("8-100|no_such.json", failureOf([&] { reader.read("no_such.json", true); }));

  std::string const nowhere = documentPath("no_such_schema.json");
  reader.setSchema(nowhere);
  EXPECT_EQ("8-102|" + nowhere, failureOf([&] { reader.read(documentPath("relative.json"), false); }));

  reader.setSchema(documentPath("any_schema.json"));
  std::istringstream broken("{ \"NodeConstraints\": { ");
  EXPECT_EQ(0u, failureOf([&] { reader.read(broken, "broken.json", false); }).rfind("8-101|broken.json|", 0));
  std::istringstream array("[]");
  EXPECT_EQ("75-571|array.json|#|type|#", failureOf([&] { reader.read(array, "array.json", true); }));
  EXPECT_TRUE(store.empty());

  // The installed schema types the tile's column; without validation the text is no column.
  std::string const wrongType = "{ \"NodeConstraints\": { \"n\": { \"tile\": { \"column\": \"3\" } } } }";
  ConstrReader installed(store);
  std::istringstream checked(wrongType);
  try {
    installed.read(checked, "typed.json", true);
    FAIL() << "a text where the schema wants an integer fails validation";
  } catch (HEXAll const& error) {
    ComMsgMgrInstance const& message = error.getMessage();
    ASSERT_EQ(4u, message.getArgs().size());
    EXPECT_EQ("75-571", message.getId());
    EXPECT_EQ("typed.json", message.getArgs()[0]);
    EXPECT_EQ('#', message.getArgs()[1].front());
    EXPECT_EQ("type", message.getArgs()[2]);
    EXPECT_EQ("#/NodeConstraints/n/tile/column", message.getArgs()[3]);
    ASSERT_EQ(1u, message.getMetaTypes().size());
    EXPECT_EQ(ComMsgMgr::META_FILE, message.getMetaTypes()[0].type);
  }
  std::istringstream unchecked(wrongType);
  installed.read(unchecked, "typed.json", false);
  EXPECT_TRUE(store.empty());
}

// The human forms, read with the installed schema and written back: the written document is
// the writer's forms of the same constraints, and reading it again changes nothing.
TEST_F(ConstrReaderTest, HumanFormsReadBackAsTheWritersForms) {
  std::string const expected = tarvo_test::readFile(documentPath("human_forms.written.json"));
  for (char const* name : {"human_forms.json", "human_forms.written.json"}) {
    ConstrHandler read;
    ConstrReader(read).read(documentPath(name), true);
    std::ostringstream written;
    ConstrWriter(read).write(written, "written.json", true);
    read.clear();
    EXPECT_EQ(expected, written.str()) << name;
  }
}
