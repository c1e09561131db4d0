#ifndef TARVO_DEVHRDIPDEFINITIONS_H
#define TARVO_DEVHRDIPDEFINITIONS_H

// The enumerations of the traffic design library: protocols, traffic classes, write orders,
// memory-controller ports and the kinds of on-chip blocks. Each has a fixed underlying type,
// so that a value outside the named ones (which writers turn into the fallback text) is a
// valid value of the type.
namespace DevHrdIP {
namespace Definitions {

enum AxiProt : int { AXI_STRM = 0, AXI_MM = 1 };

enum TrafficClass : int { TC_BE = 0, TC_LL = 1, TC_ISOC = 2, TC_BW = 3 };

enum Write_Order : int { WO_STRICT = 0, WO_RELAXED = 1, WO_DOORBELL = 2, WO_INVALID = 3 };

// Single bits, so that a set of ports fits one mask; 0 is no valid port.
enum PORT_TYPE : int { PORT_INVALID = 0, PORT0 = 1, PORT1 = 2, PORT2 = 4, PORT3 = 8 };

// What a block kind is on the NoC: a master sends requests into it, a slave answers them,
// and the rest (switches, array-side channels, array resources) is neither.
enum CompRole : int { ROLE_MASTER = 0, ROLE_SLAVE = 1, ROLE_NONE = 2 };

// Every kind of on-chip block, in value order, with its NoC role. The enumerator names are
// the texts of the documents.
#define DEVHRDIP_COMP_TYPE_ROWS(ROW)                                                  \
  /* 0-10: NoC switches, repeaters and bridges */                                     \
  ROW(NSW, ROLE_NONE)                                                                 \
  ROW(NSW_EDGE, ROLE_NONE)                                                            \
  ROW(NSW_CORNER, ROLE_NONE)                                                          \
  ROW(NSW_VERT, ROLE_NONE)                                                            \
  ROW(NSW_HORZ, ROLE_NONE)                                                            \
  ROW(NRPT, ROLE_NONE)                                                                \
  ROW(NRPT_HS, ROLE_NONE)                                                             \
  ROW(NBRG, ROLE_NONE)                                                                \
  ROW(NBRG_DIE, ROLE_NONE)                                                            \
  ROW(NBRG_VERT, ROLE_NONE)                                                           \
  ROW(NBRG_HORZ, ROLE_NONE)                                                           \
  /* 11-56: NoC master (ingress) and slave (egress) units by domain and hard block */ \
  ROW(PS_IGU_0, ROLE_MASTER)                                                          \
  ROW(PS_IGU_1, ROLE_MASTER)                                                          \
  ROW(PS_IGU_2, ROLE_MASTER)                                                          \
  ROW(PS_IGU_3, ROLE_MASTER)                                                          \
  ROW(PS_IGU_CCI, ROLE_MASTER)                                                        \
  ROW(PS_IGU_RPU, ROLE_MASTER)                                                        \
  ROW(PS_IGU_APU, ROLE_MASTER)                                                        \
  ROW(PS_EGU_0, ROLE_SLAVE)                                                           \
  ROW(PS_EGU_1, ROLE_SLAVE)                                                           \
  ROW(PS_EGU_CCI, ROLE_SLAVE)                                                         \
  ROW(PM_IGU, ROLE_MASTER)                                                            \
  ROW(PM_EGU, ROLE_SLAVE)                                                             \
  ROW(PM_IGU_CFG, ROLE_MASTER)                                                        \
  ROW(PM_EGU_CFG, ROLE_SLAVE)                                                         \
  ROW(ISO_IGU, ROLE_MASTER)                                                           \
  ROW(ISO_EGU, ROLE_SLAVE)                                                            \
  ROW(ISO_IGU_2, ROLE_MASTER)                                                         \
  ROW(PL_IGU, ROLE_MASTER)                                                            \
  ROW(PL_EGU, ROLE_SLAVE)                                                             \
  ROW(PL_IGU_2, ROLE_MASTER)                                                          \
  ROW(PL_EGU_2, ROLE_SLAVE)                                                           \
  ROW(PL_IGU_HS, ROLE_MASTER)                                                         \
  ROW(PL_EGU_HS, ROLE_SLAVE)                                                          \
  ROW(LP_IGU, ROLE_MASTER)                                                            \
  ROW(LP_EGU, ROLE_SLAVE)                                                             \
  ROW(LP_IGU_2, ROLE_MASTER)                                                          \
  ROW(LP_EGU_2, ROLE_SLAVE)                                                           \
  ROW(RT_IGU, ROLE_MASTER)                                                            \
  ROW(RT_EGU, ROLE_SLAVE)                                                             \
  ROW(RT_IGU_2, ROLE_MASTER)                                                          \
  ROW(RT_EGU_2, ROLE_SLAVE)                                                           \
  ROW(DMA_IGU, ROLE_MASTER)                                                           \
  ROW(DMA_EGU, ROLE_SLAVE)                                                            \
  ROW(CRYPT_IGU, ROLE_MASTER)                                                         \
  ROW(CRYPT_EGU, ROLE_SLAVE)                                                          \
  ROW(VID_IGU, ROLE_MASTER)                                                           \
  ROW(VID_EGU, ROLE_SLAVE)                                                            \
  ROW(NET_IGU, ROLE_MASTER)                                                           \
  ROW(NET_EGU, ROLE_SLAVE)                                                            \
  ROW(DBG_IGU, ROLE_MASTER)                                                           \
  ROW(DBG_EGU, ROLE_SLAVE)                                                            \
  ROW(CFG_IGU, ROLE_MASTER)                                                           \
  ROW(CFG_EGU, ROLE_SLAVE)                                                            \
  ROW(TRC_IGU, ROLE_MASTER)                                                           \
  ROW(SEC_IGU, ROLE_MASTER)                                                           \
  ROW(ERR_EGU, ROLE_SLAVE)                                                            \
  /* 57-84: memory controllers and their ports, DDR and HBM families */               \
  ROW(DDRC, ROLE_SLAVE)                                                               \
  ROW(DDRC_P0, ROLE_SLAVE)                                                            \
  ROW(DDRC_P1, ROLE_SLAVE)                                                            \
  ROW(DDRC_P2, ROLE_SLAVE)                                                            \
  ROW(DDRC_P3, ROLE_SLAVE)                                                            \
  ROW(DDRC_CH, ROLE_SLAVE)                                                            \
  ROW(DDR5, ROLE_SLAVE)                                                               \
  ROW(DDR5C, ROLE_SLAVE)                                                              \
  ROW(DDR5E, ROLE_SLAVE)                                                              \
  ROW(DDR5X, ROLE_SLAVE)                                                              \
  ROW(DDR5_P0, ROLE_SLAVE)                                                            \
  ROW(DDR5_P1, ROLE_SLAVE)                                                            \
  ROW(DDR5_P2, ROLE_SLAVE)                                                            \
  ROW(DDR5_P3, ROLE_SLAVE)                                                            \
  ROW(DDR5C_CH0, ROLE_SLAVE)                                                          \
  ROW(DDR5C_CH1, ROLE_SLAVE)                                                          \
  ROW(DDR5E_CH0, ROLE_SLAVE)                                                          \
  ROW(DDR5E_CH1, ROLE_SLAVE)                                                          \
  ROW(DDR5X_CH0, ROLE_SLAVE)                                                          \
  ROW(DDR5X_CH1, ROLE_SLAVE)                                                          \
  ROW(LPDDR_P0, ROLE_SLAVE)                                                           \
  ROW(LPDDR_P1, ROLE_SLAVE)                                                           \
  ROW(HBMMC, ROLE_SLAVE)                                                              \
  ROW(HBMMC_P0, ROLE_SLAVE)                                                           \
  ROW(HBMMC_P1, ROLE_SLAVE)                                                           \
  ROW(HBMMC_CH0, ROLE_SLAVE)                                                          \
  ROW(HBMMC_CH1, ROLE_SLAVE)                                                          \
  ROW(HBMMC_PC, ROLE_SLAVE)                                                           \
  /* 85-91: PCIE and HBM units */                                                     \
  ROW(PCIE_IGU, ROLE_MASTER)                                                          \
  ROW(PCIE_EGU, ROLE_SLAVE)                                                           \
  ROW(PCIE_IGU_2, ROLE_MASTER)                                                        \
  ROW(PCIE_EGU_2, ROLE_SLAVE)                                                         \
  ROW(HBM_EGU, ROLE_SLAVE)                                                            \
  ROW(HBM_IGU, ROLE_MASTER)                                                           \
  ROW(HBM_SW, ROLE_NONE)                                                              \
  /* 92-103: interfaces between the KPE array, the NoC and the PL */                  \
  ROW(KPE_NOC_IGU, ROLE_MASTER)                                                       \
  ROW(KPE_NOC_EGU, ROLE_SLAVE)                                                        \
  ROW(KPE_NOC_IGU_2, ROLE_MASTER)                                                     \
  ROW(KPE_NOC_EGU_2, ROLE_SLAVE)                                                      \
  ROW(KPE_PL_STRM_IN, ROLE_NONE)                                                      \
  ROW(KPE_PL_STRM_OUT, ROLE_NONE)                                                     \
  ROW(KPE_PL_CTRL_IN, ROLE_NONE)                                                      \
  ROW(KPE_PL_CTRL_OUT, ROLE_NONE)                                                     \
  ROW(KPE_SHIM_NOC, ROLE_NONE)                                                        \
  ROW(KPE_SHIM_PL, ROLE_NONE)                                                         \
  ROW(KPE_SHIM_CFG, ROLE_NONE)                                                        \
  ROW(KPE_SHIM_DMA, ROLE_NONE)                                                        \
  /* 104-110: array resources */                                                      \
  ROW(KPE_CORE, ROLE_NONE)                                                            \
  ROW(KPE_MEM, ROLE_NONE)                                                             \
  ROW(KPE_MEMTILE, ROLE_NONE)                                                         \
  ROW(KPE_DMA, ROLE_NONE)                                                             \
  ROW(KPE_LOCK, ROLE_NONE)                                                            \
  ROW(KPE_STREAM_SW, ROLE_NONE)                                                       \
  ROW(KPE_CASCADE, ROLE_NONE)                                                         \
  /* 111: the error row */                                                            \
  ROW(COMPERR, ROLE_NONE)

#define DEVHRDIP_COMP_TYPE_ENUMERATOR(name, role) name,
enum COMP_TYPE : int { DEVHRDIP_COMP_TYPE_ROWS(DEVHRDIP_COMP_TYPE_ENUMERATOR) };
#undef DEVHRDIP_COMP_TYPE_ENUMERATOR

// The rows that other code relies on by value.
static_assert(PL_IGU == 28 && PL_EGU == 29 && PL_IGU_2 == 30 && PL_EGU_2 == 31, "PL unit rows moved");
static_assert(DDRC == 57 && DDR5 == 63 && DDR5C == 64 && DDR5E == 65 && DDR5X == 66 && HBMMC == 79,
              "memory controller rows moved");
static_assert(PCIE_IGU == 85 && HBM_IGU == 90 && KPE_NOC_IGU == 92 && KPE_CORE == 104, "row ranges moved");
static_assert(COMPERR == 111, "the error row is the last of 112");

// The NoC role of a block kind; values outside the table have none.
CompRole getCompRole(COMP_TYPE type);
// True for the rows at the KPE array: its interfaces to the NoC and the PL, and its resources.
bool isKpeArrayType(COMP_TYPE type);

}  // namespace Definitions
}  // namespace DevHrdIP

#endif
