#pragma once

#include <string>

class CRhinoDoc;
class CRhinoObject;

// What the commands What and DocumentInfo tell, as lines that end in a line feed.
std::string DescribeObject(const CRhinoDoc& doc, const CRhinoObject& object);
std::string DescribeDocument(const CRhinoDoc& doc);
