#pragma once

#include <cstddef>
#include <pugixml.hpp>
#include <string>
#include <vector>

#include "projects/Projectfiles.h"

namespace tml {

/// A project file in XML.
class TXmlFile {
  public:
    /// Bytes that are no UTF-8 are read in the code page. EBadInput with the line when they are no XML or,
    /// with a rootName, when the root element has another name.
    TXmlFile(const std::string& bytes, const std::string& fileName, const std::string& codePage,
             const std::string& rootName = {});

    pugi::xml_node Root() const { return document_.document_element(); }
    /// 1-based line of an element.
    int LineOf(const pugi::xml_node& node) const { return LineAt(node.offset_debug()); }
    /// Trimmed text of the first <element Name="name"> at any depth; "" without one.
    std::string NamedText(const std::string& element, const std::string& name) const;

  private:
    int LineAt(std::ptrdiff_t offset) const;

    /// Offsets behind each line break, in rising order.
    std::vector<std::ptrdiff_t> lineEnds_;
    pugi::xml_document document_;
};

/// The units of a list of <FILE FILENAME FORMNAME DESIGNCLASS> elements, wherever it stands in the file.
std::vector<TNamedUnit> ReadFileList(const TXmlFile& xml);

}  // namespace tml
