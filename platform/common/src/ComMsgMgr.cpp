#include "ComMsgMgr.h"

#include <rapidjson/document.h>

#include <fstream>
#include <iostream>
#include <iterator>
#include <map>
#include <mutex>
#include <utility>

#include "ComMsgMgrInstance.h"
#include "HUTEnv.h"
#include "HUTFile.h"

namespace {

char const* const kCatalogue = "messages/tarvo_messages.json";

// Wording by id number, read once from the data directory. A missing or broken catalogue
// leaves it empty, so that every message still prints its id and arguments.
std::map<std::string, std::string> loadCatalogue() {
  std::map<std::string, std::string> wording;
  std::string const path = HUTEnv::getQDSDataDir(kCatalogue) + HUTFile::getDirSeparator() + kCatalogue;
  std::ifstream in(path, std::ios_base::binary);
  std::string const text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  rapidjson::Document doc;
  if (doc.Parse(text.c_str()).HasParseError() || !doc.IsObject()) return wording;
  for (auto const& entry : doc.GetObject())
    if (entry.value.IsString()) wording[entry.name.GetString()] = entry.value.GetString();
  return wording;
}

std::map<std::string, std::string> const& catalogue() {
  static std::map<std::string, std::string> const wording = loadCatalogue();
  return wording;
}

struct SinkRegistry {
  std::mutex mutex;
  std::vector<std::pair<int, ComMsgMgr::Sink>> sinks;
  int nextId = 1;
  bool defaultEnabled = true;
};

SinkRegistry& registry() {
  static SinkRegistry sinks;
  return sinks;
}

}  // namespace

void ComMsgMgr::send(int, char const* srcFile, int srcLine, std::string const& component, MsgMask mask,
                     char const* id, std::vector<std::string> args) {
  sendMessage(ComMsgMgrInstance(srcFile, srcLine, component, mask, id, std::move(args)));
}

void ComMsgMgr::sendMessage(ComMsgMgrInstance const& message) {
  SinkRegistry& sinks = registry();
  std::vector<Sink> targets;
  bool printDefault = false;
  {
    std::lock_guard<std::mutex> lock(sinks.mutex);
    printDefault = sinks.defaultEnabled;
    for (auto const& sink : sinks.sinks) targets.push_back(sink.second);
  }
  if (printDefault) std::cerr << message.getLine() << '\n';
  for (Sink const& sink : targets) sink(message);
}

int ComMsgMgr::addSink(Sink sink) {
  SinkRegistry& sinks = registry();
  std::lock_guard<std::mutex> lock(sinks.mutex);
  sinks.sinks.emplace_back(sinks.nextId, std::move(sink));
  return sinks.nextId++;
}

void ComMsgMgr::removeSink(int sinkId) {
  SinkRegistry& sinks = registry();
  std::lock_guard<std::mutex> lock(sinks.mutex);
  for (auto it = sinks.sinks.begin(); it != sinks.sinks.end(); ++it) {
    if (it->first == sinkId) {
      sinks.sinks.erase(it);
      return;
    }
  }
}

void ComMsgMgr::setDefaultSinkEnabled(bool enabled) {
  SinkRegistry& sinks = registry();
  std::lock_guard<std::mutex> lock(sinks.mutex);
  sinks.defaultEnabled = enabled;
}

char const* ComMsgMgr::severityText(MsgMask mask) {
  switch (mask) {
    case MSG_WARNING: return "WARNING";
    case MSG_CRITICAL_WARNING: return "CRITICAL WARNING";
    case MSG_ERROR: return "ERROR";
    default: return "INFO";
  }
}

std::string const* ComMsgMgr::lookupWording(std::string const& idNumber) {
  auto const& wording = catalogue();
  auto found = wording.find(idNumber);
  return found == wording.end() ? nullptr : &found->second;
}
