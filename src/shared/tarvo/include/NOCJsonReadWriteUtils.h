#ifndef TARVO_NOCJSONREADWRITEUTILS_H
#define TARVO_NOCJSONREADWRITEUTILS_H

#include <initializer_list>
#include <string>

// Where the schema of each document kind lies, and the two port messages of the NoC readers.
class NOCJsonReadWriteUtils {
 public:
  static std::string getTrafficJsonSchemaFile();
  static std::string getSolutionJsonSchemaFile();
  static std::string getConstraintsJsonSchemaFile();
  // Deliberately the same file as getConstraintsJsonSchemaFile.
  static std::string getKPEShimConstraintsJsonSchemaFile();
  static std::string getLogicalArchJsonSchemaFile();
  static std::string getTQSolutionJsonSchemaFile();

  static void validateTrafficSchemaFile(std::string const& file);
  static void validateSolutionSchemaFile(std::string const& file);
  static void validateConstraintsSchemaFile(std::string const& file);
  static void validateLogicalArchSchemaFile(std::string const& file);
  static void validateTQSolutionSchemaFile(std::string const& file);

  static void issueInvalidPortForLogicalSlave(std::string const& port, std::string const& instance);
  static void issueInvalidPortType(std::string const& port);

  // The absolute path of a schema given by its path steps below the data directory.
  static std::string getSchemaFile(std::initializer_list<char const*> steps);
};

#endif
