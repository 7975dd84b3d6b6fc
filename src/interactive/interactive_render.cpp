#include "interactive/interactive_render.h"

#include "export/camera.h"
#include "export/rib_color.h"
#include "export/rib_text.h"
#include "host/document/app.h"
#include "host/system/text.h"
#include "interactive/event_watcher.h"
#include "interactive/light_statements.h"
#include "settings/settings_store.h"
#include "shading/host_material.h"
#include "shading/material_attributes.h"

namespace orv {
namespace {

using host::Format;

std::string CameraStatement(double fov, const std::array<double, 16>& m) {
  return Format(
      "IrTweakCamera \"default\" \"fov\" [%g] \"transform\" [ %g %g %g 0.0 %g %g %g 0.0 "
      "%g %g %g 0.0 %g %g %g 1.0 ]\n",
      fov, m[0], m[1], m[2], m[4], m[5], m[6], m[8], m[9], m[10], m[12], m[13], m[14]);
}

bool IsHostShader(const std::string& call) {
  return host::EqualNoCase(call, kHostShader);
}

std::string LookStatement(const CRhinoObject& object, const MaterialAttributes& attributes,
                          double gamma) {
  const RibColor color = PlainColor(GammaAdjustColor(attributes.Diffuse, gamma));
  const double opacity = 1 - attributes.Transparency;
  return Format("IrSelect \"name\" \"Object_%d\"  IrColor %g %g %g  IrOpacity %g %g %g ",
                static_cast<int>(object.RuntimeSerialNumber()), color.Red, color.Green, color.Blue,
                opacity, opacity, opacity);
}

void AppendSurface(const std::string& surface, IprSession& session) {
  if (surface.empty() || IsHostShader(surface)) return;
  session.AppendText("IrNewSurface ");
  session.AppendText(surface);
}

void AppendDisplacement(const MaterialAttributes& attributes, IprSession& session) {
  if (attributes.Displacement.empty()) return;
  if (attributes.DisplacementMode == kNoDisplacement) {
    session.AppendText(" IrNewDisplacement \"null\" ");
  } else if (!IsHostShader(attributes.Displacement)) {
    session.AppendText(" IrNewDisplacement ");
    session.AppendText(attributes.Displacement);
  }
}

}  // namespace

InteractiveRender::InteractiveRender(const ON_UserStringList& settings, const UserValues& user,
                                     TextureConverter& textures)
    : settings_(settings), user_(user), textures_(textures) {}

InteractiveRender::~InteractiveRender() = default;

bool InteractiveRender::StartIprSession(std::string_view arguments,
                                        const IprConnection& connection) {
  EndIprSession();
  Follow(OpenIprSession(arguments, connection));
  return IsRunning();
}

void InteractiveRender::Follow(std::unique_ptr<IprSession> session) {
  session_ = std::move(session);
  if (session_ != nullptr) Listen(true);
}

void InteractiveRender::EndIprSession() {
  if (session_ == nullptr) return;
  Listen(false);
  session_->AppendText("IrEnd");
  session_->SendFrame();
  session_.reset();
}

void InteractiveRender::Listen(bool listen) {
  if (listen && watcher_ == nullptr) {
    watcher_ = std::make_unique<OrvEventWatcher>(*this);
    watcher_->Register();
  }
  watcher_->Enable(listen);
  if (listen && user_.IprUpdateView) {
    if (conduit_ == nullptr) conduit_ = std::make_unique<COrvConduit>(*this);
    conduit_->Enable();
  } else if (conduit_ != nullptr) {
    conduit_->Disable();
  }
}

void InteractiveRender::EndUnless(bool sent) {
  if (sent) return;
  RhinoApp().Print("Error when sending IPR information.\n");
  EndIprSession();
}

bool InteractiveRender::SendAlone(std::string_view statement) {
  if (session_ == nullptr || statement.empty()) return false;
  session_->Clear();
  session_->AppendText(statement);
  return session_->SendFrame();
}

double InteractiveRender::Gamma() const {
  return StoredRhinoGamma(settings_);
}

void InteractiveRender::SendCamera(const CRhinoViewport& viewport) {
  if (session_ == nullptr) return;
  const double fov = FieldOfView(viewport.VP());
  const std::array<double, 16> matrix = CameraMatrix(viewport.VP());
  if (fov == scene_.CameraFov && matrix == scene_.CameraMatrix) return;
  scene_.CameraFov = fov;
  scene_.CameraMatrix = matrix;
  // Goes behind what stands in the frame already.
  session_->AppendText(CameraStatement(fov, matrix));
  session_->SendFrame();
}

void InteractiveRender::SendObject(const CRhinoObject& object) {
  if (session_ == nullptr) return;
  MaterialAttributes attributes = ReadMaterialAttributes(object);
  session_->Clear();
  session_->AppendText(LookStatement(object, attributes, Gamma()));
  textures_.TextureCacheDir = user_.TextureCacheDir;
  bool usesTexture = false;
  bool hasOpacityMap = false;
  ConvertHostMaterial(attributes, usesTexture, hasOpacityMap, textures_, user_.ConvertTextures,
                      StoredTextureGamma(settings_));
  AppendSurface(attributes.Surface, *session_);
  AppendDisplacement(attributes, *session_);
  EndUnless(session_->SendFrame());
}

void InteractiveRender::SendLightTweak(const CRhinoObject& object, bool withTransform) {
  const ON_Light* light = ON_Light::Cast(object.Geometry());
  if (session_ == nullptr || light == nullptr) return;
  const std::string statements = LightTweakStatements(object, *light, withTransform, Gamma());
  if (!statements.empty()) EndUnless(SendAlone(statements));
}

void InteractiveRender::SendNewLight(const CRhinoObject& object) {
  const ON_Light* light = ON_Light::Cast(object.Geometry());
  if (light != nullptr) SendAlone(NewLightStatement(object, *light, Gamma()));
}

void InteractiveRender::SendLightSwitch(const CRhinoObject& object, bool on) {
  SendAlone(LightSwitchStatement(object, on));
}

void InteractiveRender::SendAmbient(const AmbientUpdate& update) {
  if (update.Mode == scene_.GiMode) SendAlone(AmbientStatement(update, Gamma()));
}

void InteractiveRender::SendReflection(const ReflectionUpdate& update) {
  SendAlone(ReflectionStatements(update, Gamma()));
}

void InteractiveRender::SendImager(const ImagerUpdate& update) {
  SendAlone(ImagerStatements(update, Gamma()));
}

void InteractiveRender::SendIprOptions(const IprSettings& before, const IprSettings& after) {
  if (session_ == nullptr) return;
  const auto send = [this](const std::string& statement) {
    session_->AppendText(statement);
    session_->SendFrame();
  };
  if (before.IprSmoothEdges != after.IprSmoothEdges) {
    const int samples = after.IprSmoothEdges ? 4 : 1;
    send(Format("IrTweakOption \"ipr\" \"pixelsamples\" [%d %d]", samples, samples));
  }
  if (before.IprMaxShadowRays != after.IprMaxShadowRays) {
    send(Format("IrTweakOption \"trace\" \"maxshadowsamples\" [%d]", after.IprMaxShadowRays));
  }
  if (before.IprMaxReflectionRays != after.IprMaxReflectionRays) {
    send(Format("IrTweakOption \"trace\" \"maxtracesamples\" [%d]", after.IprMaxReflectionRays));
  }
}

}  // namespace orv
