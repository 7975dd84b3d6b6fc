#pragma once

#include <array>
#include <optional>

#include "host/geometry/on_point.h"
#include "host/geometry/on_uuid.h"

// A camera: where it stands, how it looks, what it sees. The camera frame is right-handed; CameraZ
// points from the scene towards the camera. Lengths are in model units.
class ON_Viewport {
 public:
  enum class View { parallel = 1, perspective = 2 };

  // Frustum at the near plane: left, right, bottom, top, near, far.
  struct Frustum {
    double left = -1, right = 1, bottom = -1, top = 1, near = 1, far = 1000;
  };
  // The view's rectangle in pixels (bottom may exceed top: window coordinates) and its depth range.
  struct ScreenPort {
    int left = 0, right = 1000, bottom = 0, top = 1000, near = 0, far = 255;
  };

  View Projection() const { return m_projection; }
  ON_3dPoint CameraLocation() const { return m_location; }
  // The viewing direction, not always of unit length.
  ON_3dVector CameraDirection() const { return m_direction; }
  ON_3dVector CameraUp() const { return m_up; }
  // The unit vectors of the camera frame.
  ON_3dVector CameraX() const { return m_x; }
  ON_3dVector CameraY() const { return m_y; }
  ON_3dVector CameraZ() const { return m_z; }
  Frustum GetFrustum() const { return m_frustum; }
  ScreenPort GetScreenPort() const { return m_port; }
  // Half of the smaller of the view's two angles, in radians: the arc tangent of the smaller half
  // extent of the frustum (the larger one of each pair of sides counts) over the near distance. 0
  // when the near distance is not positive.
  double GetCameraAngle() const;
  // Half angles in radians: of the diagonal, vertical and horizontal extent.
  struct Angles {
    double diagonal, vertical, horizontal;
  };
  Angles GetHalfAngles() const;
  // The 35 mm film's lens length in millimetres that gives this view.
  double Camera35mmLensLength() const;
  // Planes of the frustum through the view axis at the near and far distance; their z axis points
  // towards the camera.
  ON_Plane GetNearPlane() const;
  ON_Plane GetFarPlane() const;

  // Sets direction and up and derives the frame from them. False, and nothing changed, when they
  // are parallel or one of them is zero.
  bool SetCameraFrame(ON_3dPoint location, ON_3dVector direction, ON_3dVector up);

  ON_UUID m_id;
  View m_projection = View::parallel;
  bool m_camera_valid = true;
  bool m_frustum_valid = true;
  bool m_port_valid = true;
  ON_3dPoint m_location{0, 0, 100};
  ON_3dVector m_direction{0, 0, -100};
  ON_3dVector m_up{0, 1, 0};
  ON_3dVector m_x{1, 0, 0};
  ON_3dVector m_y{0, 1, 0};
  ON_3dVector m_z{0, 0, 1};
  Frustum m_frustum;
  ScreenPort m_port;
  // The viewport's own target point, when it has one.
  std::optional<ON_3dPoint> m_target;
};
