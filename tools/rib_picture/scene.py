"""Turns the statements of a stream into polygons, lines and points in the camera's space."""

import math
import os

import numpy

from . import nurbs
from .stream import parameters, statements

MAX_ARCHIVE_DEPTH = 32


class State:
    """What AttributeBegin saves and AttributeEnd brings back."""

    def __init__(self):
        self.transform = numpy.eye(4)
        self.color = numpy.array([1.0, 1.0, 1.0])
        self.reversed = False
        self.trims = None

    def copy(self):
        other = State()
        other.__dict__.update(self.__dict__)
        return other


class Scene:
    """All that a stream draws. Points are rows; transforms act on rows."""

    def __init__(self):
        self.format = (640, 480)
        self.screen_window = None
        self.fov = None  # degrees; None for a parallel projection
        self.camera = numpy.eye(4)
        self.polygons = []  # (world points, faces as index arrays, colour, reversed)
        self.lines = []  # (world points, colour)
        self.points = []  # (world points, colour)
        self.left_out = {}  # statements that draw and aren't known, and how often
        self._state = State()
        self._stack = []
        self._archives = {}
        self._recording = None
        self._depth = 0

    def read(self, path):
        with open(path, encoding="utf-8", errors="replace") as file:
            text = file.read()
        for name, arguments in statements(text):
            self._record_or_run(name, arguments, os.path.dirname(path))

    def _record_or_run(self, name, arguments, folder):
        if name == "ArchiveBegin":
            self._recording = self._archives.setdefault(arguments[0], [])
        elif name == "ArchiveEnd":
            self._recording = None
        elif self._recording is not None:
            self._recording.append((name, arguments))
        elif name in ("ArchiveInstance", "ReadArchive"):
            self._play(arguments[0], folder)
        else:
            handler = getattr(self, "_do_" + name, None)
            if handler is not None:
                handler(arguments)
            elif name in ("Blobby", "Patch", "PatchMesh", "Polygon", "Sphere", "ObjectInstance"):
                self.left_out[name] = self.left_out.get(name, 0) + 1

    def _play(self, name, folder):
        path = os.path.join(folder, name)
        if self._depth >= MAX_ARCHIVE_DEPTH:
            return
        self._depth += 1
        if name in self._archives:
            for command, arguments in self._archives[name]:
                self._record_or_run(command, arguments, folder)
        elif os.path.isfile(path):
            self.read(path)
        else:
            self.left_out[name] = self.left_out.get(name, 0) + 1
        self._depth -= 1

    # The image and the camera.

    def _do_Format(self, arguments):
        self.format = (max(1, int(arguments[0])), max(1, int(arguments[1])))

    def _do_ScreenWindow(self, arguments):
        self.screen_window = [float(x) for x in numpy.hstack(arguments)]

    def _do_Projection(self, arguments):
        if arguments[0] == "perspective":
            self.fov = float(parameters(arguments).get("fov", [90])[0])

    def _do_WorldBegin(self, _):
        self.camera = self._state.transform
        self._state.transform = numpy.eye(4)

    # State.

    def _do_AttributeBegin(self, _):
        self._stack.append(self._state.copy())

    def _do_AttributeEnd(self, _):
        if self._stack:
            self._state = self._stack.pop()

    _do_TransformBegin = _do_AttributeBegin

    def _do_TransformEnd(self, _):
        if self._stack:
            self._state.transform = self._stack.pop().transform

    def _do_Color(self, arguments):
        self._state.color = numpy.hstack(arguments)[:3]

    def _do_ReverseOrientation(self, _):
        self._state.reversed = not self._state.reversed

    def _do_Identity(self, _):
        self._state.transform = numpy.eye(4)

    def _do_ConcatTransform(self, arguments):
        self._concat(numpy.hstack(arguments).reshape(4, 4))

    def _do_Translate(self, arguments):
        matrix = numpy.eye(4)
        matrix[3, :3] = arguments[:3]
        self._concat(matrix)

    def _do_Scale(self, arguments):
        self._concat(numpy.diag([*arguments[:3], 1.0]))

    def _do_Rotate(self, arguments):
        angle = math.radians(arguments[0])
        axis = numpy.array(arguments[1:4])
        axis = axis / (numpy.linalg.norm(axis) or 1)
        cross = numpy.cross(numpy.eye(3), axis)
        matrix = numpy.eye(4)
        matrix[:3, :3] += -math.sin(angle) * cross.T + (1 - math.cos(angle)) * cross @ cross
        self._concat(matrix.T)

    def _concat(self, matrix):
        self._state.transform = matrix @ self._state.transform

    # What is drawn.

    def _world(self, points):
        rows = numpy.concatenate([points, numpy.ones((len(points), 1))], axis=1)
        return nurbs.euclidean(rows @ self._state.transform)

    def _add_polygons(self, points, faces):
        self.polygons.append((self._world(points), faces, self._state.color, self._state.reversed))

    def _do_PointsPolygons(self, arguments):
        counts, indices = arguments[0].astype(int), arguments[1].astype(int)
        points = parameters(arguments)["P"].reshape(-1, 3)
        faces = numpy.split(indices, numpy.cumsum(counts)[:-1])
        self._add_polygons(points, faces)

    def _do_SubdivisionMesh(self, arguments):
        self._do_PointsPolygons(arguments[1:3] + arguments[3:])

    def _do_TrimCurve(self, arguments):
        self._state.trims = nurbs.TrimLoops(arguments)

    def _do_NuPatch(self, arguments):
        points, quads = nurbs.patch(arguments, parameters(arguments), self._state.trims)
        self._add_polygons(points, quads)

    def _add_line(self, points):
        self.lines.append((self._world(points), self._state.color))

    def _do_Curves(self, arguments):
        points = parameters(arguments)["P"].reshape(-1, 3)
        for part in numpy.split(points, numpy.cumsum(arguments[1].astype(int))[:-1]):
            self._add_line(part)

    def _do_NuCurves(self, arguments):
        counts, orders, knots, low, high = arguments[:5]
        given = parameters(arguments)
        if "Pw" in given:
            cvs = given["Pw"].reshape(-1, 4)
        else:
            cvs = given["P"].reshape(-1, 3)
            cvs = numpy.concatenate([cvs, numpy.ones((len(cvs), 1))], axis=1)
        knot = point = 0
        for n, k, a, b in zip(counts.astype(int), orders.astype(int), low, high):
            own_knots = knots[knot : knot + n + k]
            self._add_line(nurbs.curve(own_knots, k, a, b, cvs[point : point + n]))
            knot, point = knot + n + k, point + n

    def _do_Points(self, arguments):
        given = parameters(arguments)
        points = given["P"].reshape(-1, 3)
        colors = given.get("Cs")
        color = self._state.color if colors is None else colors.reshape(-1, 3)
        self.points.append((self._world(points), color))

    def _do_Volume(self, arguments):
        self._do_Points(arguments)
