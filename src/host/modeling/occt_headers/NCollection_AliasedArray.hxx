#pragma once

// Debian 12's packages of Open CASCADE lack this header, without which the one of triangulations
// can't be included. Here is as much of it as reading that one takes: nothing is defined, so that a
// call which would need the true layout does not link. Triangulations are read through their
// operations that are compiled into the library.

#include <Standard_TypeDef.hxx>

template <int kAlignment = 16>
class NCollection_AliasedArray {
 public:
  explicit NCollection_AliasedArray(Standard_Integer stride);
  NCollection_AliasedArray(Standard_Integer stride, Standard_Integer length);
  template <class T>
  NCollection_AliasedArray(const T& begin, Standard_Integer length);
  NCollection_AliasedArray(const NCollection_AliasedArray&);
  NCollection_AliasedArray(NCollection_AliasedArray&&) noexcept;
  NCollection_AliasedArray& operator=(const NCollection_AliasedArray&);
  ~NCollection_AliasedArray();

  NCollection_AliasedArray& Move(NCollection_AliasedArray&);
  bool IsEmpty() const;
  Standard_Integer Length() const;
  template <class T>
  const T& Value(Standard_Integer index) const;
  template <class T>
  T& ChangeValue(Standard_Integer index);

 protected:
  Standard_Byte* myData = nullptr;
  Standard_Integer myStride = 0;
};
