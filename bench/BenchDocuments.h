#ifndef TARVO_BENCH_BENCHDOCUMENTS_H
#define TARVO_BENCH_BENCHDOCUMENTS_H

#include <string>

#include "ConstrHandler.h"
#include "KPEPrjMetaDataModel.h"
#include "TQLogicalArchModel.h"
#include "TrafficSpec.h"

// The generated models behind the large documents that the benchmark programs and the
// whole-process benchmark read and write. `scale` multiplies every count: 1 gives the sizes
// of the published tables, a small scale a quick run of the same shapes.
namespace tarvo_bench {

// 12,000 masters, 8,000 slaves and 150,000 paths at scale 1.
void fillTraffic(HrdIPToolCntr::TrafficSpec& spec, double scale = 1.0);
// 2,000 instances of 64 ports each and 50,000 connections at scale 1; one instance at least.
void fillLogicalArch(Tarvo::Frameworks::TQLogicalArchModel& model, double scale = 1.0);
// 100,000 properties of every type at scale 1.
void fillMetadata(Tarvo::Frameworks::KPEPrjMetaDataModel& model, double scale = 1.0);
// `objects` constrained nodes, ports and nets, with an area group per hundred.
void fillConstraints(kpe::constraints::ConstrHandler& store, int objects);

// The written text of each model above.
std::string trafficText(double scale = 1.0);
std::string logicalArchText(double scale = 1.0);
std::string metadataText(double scale = 1.0);
std::string constraintsText(int objects);

// The written text of any traffic specification.
std::string writtenTraffic(HrdIPToolCntr::TrafficSpec const& spec);

// `count` times `scale`, at least `least`.
int scaled(int count, double scale, int least = 0);

}  // namespace tarvo_bench

#endif
