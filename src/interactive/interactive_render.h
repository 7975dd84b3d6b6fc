#pragma once

#include <array>
#include <memory>
#include <string>
#include <string_view>

#include "host/geometry/on_user_string_list.h"
#include "host/geometry/on_uuid.h"
#include "interactive/background_statements.h"
#include "interactive/ipr_session.h"
#include "settings/ipr_settings.h"
#include "settings/user_values.h"
#include "shading/texture_converter.h"

class CRhinoObject;
class CRhinoViewport;

namespace orv {

class COrvConduit;
class OrvEventWatcher;

// The live connection to an interactive renderer that shows an exported scene. While it stands,
// each operation sends what has changed as one frame; without one it does nothing.
class InteractiveRender {
 public:
  // What the renderer's scene was made with, and the camera that it was sent last.
  struct Scene {
    int GiMode = 0;
    ON_UUID ViewportId;
    // World to camera, row after row, and the angle of the view in degrees.
    std::array<double, 16> CameraMatrix{};
    double CameraFov = 0;
  };

  // All of them outlive the object.
  InteractiveRender(const ON_UserStringList& settings, const UserValues& user,
                    TextureConverter& textures);
  // Leaves the renderer to itself.
  ~InteractiveRender();
  InteractiveRender(const InteractiveRender&) = delete;
  InteractiveRender& operator=(const InteractiveRender&) = delete;

  bool IsRunning() const { return session_ != nullptr; }
  void SetScene(const Scene& scene) { scene_ = scene; }
  const ON_UUID& ViewportId() const { return scene_.ViewportId; }

  // Follows the document's lights and materials for this session from now on, and the view when the
  // user wants that. There must be no other session; null does nothing.
  void Follow(std::unique_ptr<IprSession> session);
  // Ends the session that stands, starts the renderer with the arguments and follows the document
  // for it. False when the renderer can't be had; there is no session then.
  [[nodiscard]] bool StartIprSession(std::string_view arguments,
                                     const IprConnection& connection = {});
  // Tells the renderer to end, and closes the connection.
  void EndIprSession();

  // The camera, unless it is where it was sent to last.
  void SendCamera(const CRhinoViewport& viewport);
  // The colour, opacity, surface and displacement of an object. A failure is told, and ends the
  // session.
  void SendObject(const CRhinoObject& object);
  // A light's values, with its place and shape if wanted. A failure is told, and ends the session.
  void SendLightTweak(const CRhinoObject& object, bool withTransform);
  void SendNewLight(const CRhinoObject& object);
  void SendLightSwitch(const CRhinoObject& object, bool on);
  // Only in the GI mode that the scene has.
  void SendAmbient(const AmbientUpdate& update);
  void SendReflection(const ReflectionUpdate& update);
  void SendImager(const ImagerUpdate& update);
  // What differs between two records, a frame each.
  void SendIprOptions(const IprSettings& before, const IprSettings& after);

 private:
  // Sends a statement in a frame of its own; an empty one not at all.
  bool SendAlone(std::string_view statement);
  void Listen(bool listen);
  // After a frame that was to go out.
  void EndUnless(bool sent);
  double Gamma() const;

  const ON_UserStringList& settings_;
  const UserValues& user_;
  TextureConverter& textures_;
  Scene scene_;
  std::unique_ptr<IprSession> session_;
  // Null until a session needs them.
  std::unique_ptr<OrvEventWatcher> watcher_;
  std::unique_ptr<COrvConduit> conduit_;
};

}  // namespace orv
