#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <string>

/// Whether Apple's type definitions are at hand: the folder that KESTREL_DTD_DIR names.
inline const char* dtdFolder() { return std::getenv("KESTREL_DTD_DIR"); }

/// Whether xmllint finds the document to be what its type definition says.
inline bool isValidFcpxml(const std::string& text, bool modern) {
  const std::string file = testing::TempDir() + "kestrel.fcpxml";
  std::ofstream(file, std::ios::binary) << text;
  const std::string command = "xmllint --noout --dtdvalid '" + std::string(dtdFolder()) +
                              (modern ? "/FCPXMLv1_10.dtd' '" : "/FCPXMLv1_1.dtd' '") + file + "'";
  return std::system(command.c_str()) == 0;
}
