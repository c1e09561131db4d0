#include "HIPDeviceLoader.h"

namespace DevHrdIP {

// Eight switches in four columns and two rows. The lower row serves the PL and the array,
// the upper row the processing system, platform management and the memory controller, whose
// four ports hang on the two middle switches.
// The KPE shim row has four tiles in device columns 0 to 3, each with four PL channels, two
// NoC channels and a control site that is no channel.
std::string const& HIPDeviceLoader::getDefaultDeviceText() {
  static std::string const text = R"json({
  "name": "zorvex-demo",
  "noc": {
    "components": [
      {"name": "NOC_SW_X0Y0", "type": "NSW"},
      {"name": "NOC_SW_X1Y0", "type": "NSW"},
      {"name": "NOC_SW_X2Y0", "type": "NSW"},
      {"name": "NOC_SW_X3Y0", "type": "NSW"},
      {"name": "NOC_SW_X0Y1", "type": "NSW"},
      {"name": "NOC_SW_X1Y1", "type": "NSW"},
      {"name": "NOC_SW_X2Y1", "type": "NSW"},
      {"name": "NOC_SW_X3Y1", "type": "NSW"},
      {"name": "NOC_IN_PL_0", "type": "PL_IGU"},
      {"name": "NOC_OUT_PL_0", "type": "PL_EGU"},
      {"name": "NOC_IN_PL_1", "type": "PL_IGU"},
      {"name": "NOC_OUT_PL_1", "type": "PL_EGU"},
      {"name": "NOC_IN_KPE_0", "type": "KPE_NOC_IGU"},
      {"name": "NOC_OUT_KPE_0", "type": "KPE_NOC_EGU"},
      {"name": "NOC_IN_KPE_1", "type": "KPE_NOC_IGU"},
      {"name": "NOC_OUT_KPE_1", "type": "KPE_NOC_EGU"},
      {"name": "NOC_IN_PS_0", "type": "PS_IGU_0"},
      {"name": "NOC_OUT_PS_0", "type": "PS_EGU_0"},
      {"name": "NOC_IN_PM_0", "type": "PM_IGU"},
      {"name": "NOC_OUT_PM_0", "type": "PM_EGU"},
      {"name": "NOC_MC_0", "type": "DDRC", "ports": [
        {"name": "NOC_MC_0_PORT0", "type": "DDRC_P0"},
        {"name": "NOC_MC_0_PORT1", "type": "DDRC_P1"},
        {"name": "NOC_MC_0_PORT2", "type": "DDRC_P2"},
        {"name": "NOC_MC_0_PORT3", "type": "DDRC_P3"}
      ]}
    ],
    "links": [
      {"from": "NOC_SW_X0Y0", "fromPort": "E", "to": "NOC_SW_X1Y0", "toPort": "W", "latency": 2},
      {"from": "NOC_SW_X1Y0", "fromPort": "W", "to": "NOC_SW_X0Y0", "toPort": "E", "latency": 2},
      {"from": "NOC_SW_X0Y0", "fromPort": "N", "to": "NOC_SW_X0Y1", "toPort": "S", "latency": 2},
      {"from": "NOC_SW_X0Y1", "fromPort": "S", "to": "NOC_SW_X0Y0", "toPort": "N", "latency": 2},
      {"from": "NOC_SW_X1Y0", "fromPort": "E", "to": "NOC_SW_X2Y0", "toPort": "W", "latency": 2},
      {"from": "NOC_SW_X2Y0", "fromPort": "W", "to": "NOC_SW_X1Y0", "toPort": "E", "latency": 2},
      {"from": "NOC_SW_X1Y0", "fromPort": "N", "to": "NOC_SW_X1Y1", "toPort": "S", "latency": 2},
      {"from": "NOC_SW_X1Y1", "fromPort": "S", "to": "NOC_SW_X1Y0", "toPort": "N", "latency": 2},
      {"from": "NOC_SW_X2Y0", "fromPort": "E", "to": "NOC_SW_X3Y0", "toPort": "W", "latency": 2},
      {"from": "NOC_SW_X3Y0", "fromPort": "W", "to": "NOC_SW_X2Y0", "toPort": "E", "latency": 2},
      {"from": "NOC_SW_X2Y0", "fromPort": "N", "to": "NOC_SW_X2Y1", "toPort": "S", "latency": 2},
      {"from": "NOC_SW_X2Y1", "fromPort": "S", "to": "NOC_SW_X2Y0", "toPort": "N", "latency": 2},
      {"from": "NOC_SW_X3Y0", "fromPort": "N", "to": "NOC_SW_X3Y1", "toPort": "S", "latency": 2},
      {"from": "NOC_SW_X3Y1", "fromPort": "S", "to": "NOC_SW_X3Y0", "toPort": "N", "latency": 2},
      {"from": "NOC_SW_X0Y1", "fromPort": "E", "to": "NOC_SW_X1Y1", "toPort": "W", "latency": 2},
      {"from": "NOC_SW_X1Y1", "fromPort": "W", "to": "NOC_SW_X0Y1", "toPort": "E", "latency": 2},
      {"from": "NOC_SW_X1Y1", "fromPort": "E", "to": "NOC_SW_X2Y1", "toPort": "W", "latency": 2},
      {"from": "NOC_SW_X2Y1", "fromPort": "W", "to": "NOC_SW_X1Y1", "toPort": "E", "latency": 2},
      {"from": "NOC_SW_X2Y1", "fromPort": "E", "to": "NOC_SW_X3Y1", "toPort": "W", "latency": 2},
      {"from": "NOC_SW_X3Y1", "fromPort": "W", "to": "NOC_SW_X2Y1", "toPort": "E", "latency": 2},
      {"from": "NOC_IN_PL_0", "fromPort": "P", "to": "NOC_SW_X0Y0", "toPort": "L0", "latency": 1},
      {"from": "NOC_SW_X0Y0", "fromPort": "L0", "to": "NOC_IN_PL_0", "toPort": "P", "latency": 1},
      {"from": "NOC_OUT_PL_0", "fromPort": "P", "to": "NOC_SW_X0Y0", "toPort": "L1", "latency": 1},
      {"from": "NOC_SW_X0Y0", "fromPort": "L1", "to": "NOC_OUT_PL_0", "toPort": "P", "latency": 1},
      {"from": "NOC_IN_PL_1", "fromPort": "P", "to": "NOC_SW_X1Y0", "toPort": "L0", "latency": 1},
      {"from": "NOC_SW_X1Y0", "fromPort": "L0", "to": "NOC_IN_PL_1", "toPort": "P", "latency": 1},
      {"from": "NOC_OUT_PL_1", "fromPort": "P", "to": "NOC_SW_X1Y0", "toPort": "L1", "latency": 1},
      {"from": "NOC_SW_X1Y0", "fromPort": "L1", "to": "NOC_OUT_PL_1", "toPort": "P", "latency": 1},
      {"from": "NOC_IN_KPE_0", "fromPort": "P", "to": "NOC_SW_X2Y0", "toPort": "L0", "latency": 1},
      {"from": "NOC_SW_X2Y0", "fromPort": "L0", "to": "NOC_IN_KPE_0", "toPort": "P", "latency": 1},
      {"from": "NOC_OUT_KPE_0", "fromPort": "P", "to": "NOC_SW_X2Y0", "toPort": "L1", "latency": 1},
      {"from": "NOC_SW_X2Y0", "fromPort": "L1", "to": "NOC_OUT_KPE_0", "toPort": "P", "latency": 1},
      {"from": "NOC_IN_KPE_1", "fromPort": "P", "to": "NOC_SW_X3Y0", "toPort": "L0", "latency": 1},
      {"from": "NOC_SW_X3Y0", "fromPort": "L0", "to": "NOC_IN_KPE_1", "toPort": "P", "latency": 1},
      {"from": "NOC_OUT_KPE_1", "fromPort": "P", "to": "NOC_SW_X3Y0", "toPort": "L1", "latency": 1},
      {"from": "NOC_SW_X3Y0", "fromPort": "L1", "to": "NOC_OUT_KPE_1", "toPort": "P", "latency": 1},
      {"from": "NOC_IN_PS_0", "fromPort": "P", "to": "NOC_SW_X0Y1", "toPort": "L0", "latency": 1},
      {"from": "NOC_SW_X0Y1", "fromPort": "L0", "to": "NOC_IN_PS_0", "toPort": "P", "latency": 1},
      {"from": "NOC_OUT_PS_0", "fromPort": "P", "to": "NOC_SW_X0Y1", "toPort": "L1", "latency": 1},
      {"from": "NOC_SW_X0Y1", "fromPort": "L1", "to": "NOC_OUT_PS_0", "toPort": "P", "latency": 1},
      {"from": "NOC_MC_0_PORT0", "fromPort": "P", "to": "NOC_SW_X1Y1", "toPort": "L0", "latency": 1},
      {"from": "NOC_SW_X1Y1", "fromPort": "L0", "to": "NOC_MC_0_PORT0", "toPort": "P", "latency": 1},
      {"from": "NOC_MC_0_PORT1", "fromPort": "P", "to": "NOC_SW_X1Y1", "toPort": "L1", "latency": 1},
      {"from": "NOC_SW_X1Y1", "fromPort": "L1", "to": "NOC_MC_0_PORT1", "toPort": "P", "latency": 1},
      {"from": "NOC_MC_0_PORT2", "fromPort": "P", "to": "NOC_SW_X2Y1", "toPort": "L0", "latency": 1},
      {"from": "NOC_SW_X2Y1", "fromPort": "L0", "to": "NOC_MC_0_PORT2", "toPort": "P", "latency": 1},
      {"from": "NOC_MC_0_PORT3", "fromPort": "P", "to": "NOC_SW_X2Y1", "toPort": "L1", "latency": 1},
      {"from": "NOC_SW_X2Y1", "fromPort": "L1", "to": "NOC_MC_0_PORT3", "toPort": "P", "latency": 1},
      {"from": "NOC_IN_PM_0", "fromPort": "P", "to": "NOC_SW_X3Y1", "toPort": "L0", "latency": 1},
      {"from": "NOC_SW_X3Y1", "fromPort": "L0", "to": "NOC_IN_PM_0", "toPort": "P", "latency": 1},
      {"from": "NOC_OUT_PM_0", "fromPort": "P", "to": "NOC_SW_X3Y1", "toPort": "L1", "latency": 1},
      {"from": "NOC_SW_X3Y1", "fromPort": "L1", "to": "NOC_OUT_PM_0", "toPort": "P", "latency": 1}
    ]
  },
  "kpeShimRow": {
    "tiles": [
      {"name": "KPE_SHIM_X0Y0", "column": 0, "sites": [
        {"name": "PL_S0", "channel": 0},
        {"name": "PL_S1", "channel": 1},
        {"name": "PL_M0", "channel": 2},
        {"name": "PL_M1", "channel": 3},
        {"name": "NOC_S0", "channel": 4},
        {"name": "NOC_M0", "channel": 5},
        {"name": "CTRL"}
      ]},
      {"name": "KPE_SHIM_X1Y0", "column": 1, "sites": [
        {"name": "PL_S0", "channel": 0},
        {"name": "PL_S1", "channel": 1},
        {"name": "PL_M0", "channel": 2},
        {"name": "PL_M1", "channel": 3},
        {"name": "NOC_S0", "channel": 4},
        {"name": "NOC_M0", "channel": 5},
        {"name": "CTRL"}
      ]},
      {"name": "KPE_SHIM_X2Y0", "column": 2, "sites": [
        {"name": "PL_S0", "channel": 0},
        {"name": "PL_S1", "channel": 1},
        {"name": "PL_M0", "channel": 2},
        {"name": "PL_M1", "channel": 3},
        {"name": "NOC_S0", "channel": 4},
        {"name": "NOC_M0", "channel": 5},
        {"name": "CTRL"}
      ]},
      {"name": "KPE_SHIM_X3Y0", "column": 3, "sites": [
        {"name": "PL_S0", "channel": 0},
        {"name": "PL_S1", "channel": 1},
        {"name": "PL_M0", "channel": 2},
        {"name": "PL_M1", "channel": 3},
        {"name": "NOC_S0", "channel": 4},
        {"name": "NOC_M0", "channel": 5},
        {"name": "CTRL"}
      ]}
    ]
  }
}
)json";
  return text;
}

}  // namespace DevHrdIP
