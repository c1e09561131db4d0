#ifndef TARVO_NOCJSONENUMTEXTS_H
#define TARVO_NOCJSONENUMTEXTS_H

#include <string>

#include "DevHrdIPDefinitions.h"

// The texts of the traffic design library's enumerations in the NoC documents, each table
// once for all their readers and writers. Reading never fails: an unknown text gives the
// table's fallback value.
namespace NOC {

// Unknown texts read as AXI_MM; values other than AXI_MM write as "AXI_STRM".
DevHrdIP::Definitions::AxiProt axiProtFromText(std::string const& text);
char const* axiProtToText(int protocol);

// Unknown texts read as TC_BE; values beyond TC_ISOC write as "BW".
DevHrdIP::Definitions::TrafficClass trafficClassFromText(std::string const& text);
char const* trafficClassToText(int trafficClass);

// Unknown texts read as WO_INVALID, which writes as "invalid" like every other value.
DevHrdIP::Definitions::Write_Order writeOrderFromText(std::string const& text);
char const* writeOrderToText(int order);

// "PORT0".."PORT3" and "PC0_PORT0".."PC1_PORT1" read as the port bits, anything else as
// PORT_INVALID; values other than the four bits write as "PORTERR".
DevHrdIP::Definitions::PORT_TYPE portTypeFromText(std::string const& text);
char const* portTypeToText(int port);

// Unknown texts, "COMPERR" among them, read as COMPERR; values from COMPERR on write as
// "COMPERR".
DevHrdIP::Definitions::COMP_TYPE compTypeFromText(std::string const& text);
char const* compTypeToText(int compType);

}  // namespace NOC

#endif
