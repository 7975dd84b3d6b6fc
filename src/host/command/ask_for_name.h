#pragma once

class CRhinoDoc;
class CRhinoGetString;

// What makes a getter ask for the name of something that the document has: it completes the names
// and refuses any other text. The getter doesn't outlive the document's tables.

// A layer, by its name or full path.
void AskForLayer(CRhinoGetString& get, const CRhinoDoc& doc);
void AskForMaterial(CRhinoGetString& get, const CRhinoDoc& doc);
