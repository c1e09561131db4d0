// Places, addresses and stream channels keep their cells as plain numbers and a name; these
// pin what the cells showed as defaulted attributes: -1 is unset however it was set, and
// the name handed out by reference follows later sets.

#include <gtest/gtest.h>

#include "LocationConstraints.h"

using namespace kpe::constraints;

TEST(PlaceCellsTest, MinusOneIsUnsetAndTheNameReferenceFollowsTheSpec) {
  PhysicalSpec spec(PhysicalSpec::MEM);
  EXPECT_FALSE(spec.isSpecified());
  EXPECT_EQ(-1, spec.getColumn());
  spec.setXY(-1, 4);
  EXPECT_FALSE(spec.hasColumn());
  EXPECT_TRUE(spec.hasRow());
  EXPECT_FALSE(spec.isSpecified());
  spec.setChannel(-2);
  spec.setBankId(0);
  spec.setOffset(-1);
  EXPECT_TRUE(spec.hasChannel());
  EXPECT_TRUE(spec.hasBankId());
  EXPECT_FALSE(spec.hasOffset());
  EXPECT_EQ("mem=(-1,4)", spec.str());

  EXPECT_EQ("", spec.getName());
  spec.setName("m7");
  std::string const& name = spec.getName();
  EXPECT_EQ(-1, spec.getChannel());
  PhysicalSpec copy(spec);
  spec.setName("m8");
  EXPECT_EQ("m8", name);
  spec.clearAll();
  EXPECT_EQ("", name);
  EXPECT_EQ(PhysicalSpec::MEM, spec.getPhysicalType());
  EXPECT_EQ("m7", copy.getName());

  StreamChannelConstr channel("p");
  EXPECT_FALSE(channel.isValid());
  channel.setOffset(-1);
  channel.setChannel(0);
  channel.setDirection(StreamChannelConstr::East);
  EXPECT_FALSE(channel.hasOffset());
  EXPECT_FALSE(channel.isValid());
  channel.setOffset(2);
  EXPECT_TRUE(channel.isValid());
  EXPECT_EQ(2, channel.getOffset());
  EXPECT_EQ(-1, channel.getRow());
}
