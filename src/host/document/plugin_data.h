#pragma once

#include "host/document/file_options.h"
#include "host/geometry/on_uuid.h"

class CRhinoDoc;
class ON_BinaryArchive;

// What a plug-in does with its own part of a document file. A plug-in is one of these.
class CRhinoPlugInDocumentData {
 public:
  virtual ~CRhinoPlugInDocumentData() = default;
  virtual ON_UUID PlugInID() const = 0;
  // Whether there is something to be written into this file.
  virtual bool CallWriteDocument(const CRhinoFileWriteOptions& options) = 0;
  virtual bool WriteDocument(CRhinoDoc& doc, ON_BinaryArchive& archive,
                             const CRhinoFileWriteOptions& options) = 0;
  virtual bool ReadDocument(CRhinoDoc& doc, ON_BinaryArchive& archive,
                            const CRhinoFileReadOptions& options) = 0;
};
