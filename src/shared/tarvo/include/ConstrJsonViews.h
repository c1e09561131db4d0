#ifndef TARVO_CONSTRJSONVIEWS_H
#define TARVO_CONSTRJSONVIEWS_H

#include <string>
#include <vector>

#include "HCRapidJsonReadWriteUtils.h"
#include "PhysicalSpec.h"

// Typed looks at the values of a constraint document, for its reader. A view holds a pointer
// to the value (null when the value is missing), writes nothing, and says through isValid
// whether the value has the form the view expects; the getters of a view that does not hold
// its form give empty or default results.
namespace json {

typedef HCRapidJsonReadWriteUtils::Value Value;

class JBaseValue {
 public:
  explicit JBaseValue(Value const* value) : m_value(value) {}
  // The member `key` of `object`; missing unless `object` is an object that has it.
  JBaseValue(Value const& object, char const* key);
  virtual ~JBaseValue();
  // The value exists and is not null.
  virtual bool isValid() const;
  Value const* value() const { return m_value; }

 protected:
  Value const* m_value;
};

// A boolean, number or string.
class JSimpleValue : public JBaseValue {
 public:
  using JBaseValue::JBaseValue;
  bool isValid() const override;
};

class JBool : public JSimpleValue {
 public:
  using JSimpleValue::JSimpleValue;
  bool isValid() const override;
  // True only for the JSON value true.
  bool get() const;
};

// An integer that fits 32 bits.
class JInt : public JSimpleValue {
 public:
  using JSimpleValue::JSimpleValue;
  bool isValid() const override;
  int get(int fallback = -1) const;
};

class JString : public JSimpleValue {
 public:
  using JSimpleValue::JSimpleValue;
  bool isValid() const override;
  std::string get() const;
};

class JBaseArray : public JBaseValue {
 public:
  using JBaseValue::JBaseValue;
  bool isValid() const override;
  unsigned size() const;
  Value const& at(unsigned index) const { return (*m_value)[index]; }
};

class JArray : public JBaseArray {
 public:
  using JBaseArray::JBaseArray;
};

class JStringArray : public JBaseArray {
 public:
  using JBaseArray::JBaseArray;
  // The string elements in order; elements of other kinds are passed over.
  std::vector<std::string> get() const;
};

// An array of name items: a string, or an object with one member whose key is the name and
// whose value holds "issoft".
class JObjectArrayWithProperties : public JBaseArray {
 public:
  struct Item {
    std::string name;
    bool soft;
  };
  using JBaseArray::JBaseArray;
  // The items in order; elements of other kinds are passed over.
  std::vector<Item> get() const;
};

// An array of exactly two elements.
class JBasePair : public JBaseValue {
 public:
  using JBaseValue::JBaseValue;
  bool isValid() const override;
  Value const* firstValue() const;
  Value const* secondValue() const;
};

class JPair : public JBasePair {
 public:
  using JBasePair::JBasePair;
};

class JIntPair : public JBasePair {
 public:
  using JBasePair::JBasePair;
  // Both elements are integers.
  bool isValid() const override;
  int first() const;
  int second() const;
};

// An explicit source: "file", "line", "column".
class JSrcInfoValue : public JBaseValue {
 public:
  using JBaseValue::JBaseValue;
  // A non-empty "file" text was found.
  bool isValid() const override;
  std::string file() const;
  int line() const;
  int column() const;
};

// One place of an area group range, from an integer (a column), a pair of integers, or a
// place text without ":". Valid when the place has a name or a column.
class JTileValue : public JBaseValue {
 public:
  explicit JTileValue(Value const* value);
  explicit JTileValue(std::string const& text);
  bool isValid() const override;
  TileSpec const& spec() const { return m_spec; }
  // False when a place text had only one of "(" and ")" at its ends.
  bool balanced() const { return m_balanced; }

 private:
  TileSpec m_spec;
  bool m_balanced = true;
};

// As JTileValue; the second number of a pair is the channel.
class JShimValue : public JBaseValue {
 public:
  explicit JShimValue(Value const* value);
  explicit JShimValue(std::string const& text);
  bool isValid() const override;
  ShimSpec const& spec() const { return m_spec; }
  bool balanced() const { return m_balanced; }

 private:
  ShimSpec m_spec;
  bool m_balanced = true;
};

class JMemValue : public JBaseValue {
 public:
  explicit JMemValue(Value const* value);
  explicit JMemValue(std::string const& text);
  bool isValid() const override;
  MemSpec const& spec() const { return m_spec; }
  bool balanced() const { return m_balanced; }

 private:
  MemSpec m_spec;
  bool m_balanced = true;
};

}  // namespace json

#endif
