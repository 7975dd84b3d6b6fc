#pragma once

#include <cstddef>
#include <string>

namespace orv {

inline constexpr std::size_t kMaxTextureCacheDir = 1000;

// What a user keeps across documents. The plug-in owns the values; they are read from the profile
// when it loads and written back when it unloads.
struct UserValues {
  // The host's file export normalises the domains of NURBS.
  bool Reparameterize = true;
  // The interactive render follows the view.
  bool IprUpdateView = true;
  int Threads = 1;
  int IprThreads = 1;
  double IlluminanceUnity = 500;
  // Submit renders through the render queue.
  bool Gyre = false;
  // Add "_v" and Version to the names of scenes and images.
  bool UseVersion = false;
  // Start renders through the control front end.
  bool UseOrvControl = false;
  int Version = 1;
  bool ConvertTextures = true;
  // The folders that file dialogs start in and that searches use.
  std::string ArchiveDir;
  std::string DarkTreeDir;
  std::string EnvironmentDir;
  std::string GiCacheDir;
  std::string ImageDir;
  std::string MaterialDir;
  std::string MeshDir;
  std::string RibDir;
  std::string SettingsDir;
  std::string ShaderDir;
  std::string TextureDir;
  // The folder of converted textures, at most kMaxTextureCacheDir bytes.
  std::string TextureCacheDir;
};

}  // namespace orv
