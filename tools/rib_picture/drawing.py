"""Draws a scene into a picture: far things first, each polygon in one shade."""

import math

import numpy
from PIL import Image, ImageDraw

BACKGROUND = (236, 238, 241)
BACK_SIDE = numpy.array([0.85, 0.25, 0.2])
EDGES = numpy.array([0.25, 0.25, 0.25])
LEAST_DEPTH = 1e-6
# Triangles of more pixels are split, at most so many times.
LARGEST = 24
SPLITS = 6


class Camera:
    """From the world to the pixels of a picture."""

    def __init__(self, scene, width, height):
        self.scene, self.size = scene, (width, height)
        aspect = width / height
        x, y = (aspect, 1) if aspect >= 1 else (1, 1 / aspect)
        self.window = scene.screen_window or [-x, x, -y, y]

    def eye(self):
        """Where the camera stands; None in a parallel projection."""
        if self.scene.fov is None:
            return None
        return numpy.linalg.inv(self.scene.camera)[3, :3]

    def direction(self):
        """Where it looks."""
        return numpy.linalg.inv(self.scene.camera)[2, :3]

    def project(self, world):
        """Pixels and depths. What isn't in front of the camera has a depth that is not a number."""
        rows = numpy.concatenate([world, numpy.ones((len(world), 1))], axis=1) @ self.scene.camera
        depth = rows[:, 2].copy()
        plane = rows[:, :2]
        if self.scene.fov is not None:
            depth[depth < LEAST_DEPTH] = numpy.nan
            plane = plane / (depth * math.tan(math.radians(self.scene.fov) / 2))[:, None]
        left, right, bottom, top = self.window
        x = (plane[:, 0] - left) / (right - left) * self.size[0]
        y = (top - plane[:, 1]) / (top - bottom) * self.size[1]
        return numpy.stack([x, y], axis=1), depth


def _fans(faces):
    """Faces of any number of corners as triangles."""
    parts = []
    for count in {len(face) for face in faces if len(face) >= 3}:
        same = numpy.array([face for face in faces if len(face) == count])
        parts += [same[:, [0, i, i + 1]] for i in range(1, count - 1)]
    return numpy.concatenate(parts) if parts else numpy.zeros((0, 3), dtype=int)


def _halved(triangles):
    """Each triangle as four of half its size."""
    a, b, c = (triangles[:, i] for i in range(3))
    ab, bc, ca = (a + b) / 2, (b + c) / 2, (c + a) / 2
    parts = [(a, ab, ca), (ab, b, bc), (ca, bc, c), (ab, bc, ca)]
    return numpy.concatenate([numpy.stack(part, axis=1) for part in parts])


class Picture:
    """Collects what is to be drawn, then draws it from the back to the front."""

    def __init__(self, scene, width, height, wireframe=False, show_sides=False):
        self.camera = Camera(scene, width, height)
        self.wireframe, self.show_sides = wireframe, show_sides
        self.items = []  # (depth, kind, pixels, colour)
        for polygons in scene.polygons:
            self._add_polygons(*polygons)
        for world, color in scene.lines:
            self._add_line(world, color)
        for world, color in scene.points:
            self._add_points(world, color)

    def _add_polygons(self, world, faces, color, is_reversed):
        if self.wireframe:
            for face in faces:
                self._add_line(world[numpy.append(face, face[:1])], EDGES)
            return
        triangles = world[_fans(faces)]
        normals = numpy.cross(triangles[:, 1] - triangles[:, 0], triangles[:, 2] - triangles[:, 0])
        lengths = numpy.linalg.norm(normals, axis=1)
        triangles, normals = triangles[lengths > 0], normals[lengths > 0]
        eye = self.camera.eye()
        to_eye = -self.camera.direction() if eye is None else eye - triangles[:, 0]
        facing = (normals * to_eye).sum(axis=1) / (
            lengths[lengths > 0] * numpy.linalg.norm(to_eye, axis=-1))
        if is_reversed:
            facing = -facing
        colors = numpy.broadcast_to(color, (len(triangles), 3))
        if self.show_sides:
            colors = numpy.where(facing[:, None] < 0, BACK_SIDE, colors)
        self._add_triangles(triangles, colors * (0.25 + 0.75 * numpy.abs(facing))[:, None])

    def _add_triangles(self, triangles, colors):
        """Large ones are split, as the order of depths is only good for small ones."""
        for remaining in range(SPLITS, -1, -1):
            pixels, depth = self.camera.project(triangles.reshape(-1, 3))
            is_ahead = numpy.isfinite(depth).reshape(-1, 3).any(axis=1)
            triangles, colors = triangles[is_ahead], colors[is_ahead]
            pixels = pixels.reshape(-1, 3, 2)[is_ahead]
            depth = depth.reshape(-1, 3)[is_ahead].mean(axis=1)
            is_small = numpy.ptp(pixels, axis=1).max(axis=1) <= LARGEST
            is_done = numpy.isfinite(depth) & (is_small | (remaining == 0))
            for item in zip(depth[is_done], pixels[is_done], colors[is_done]):
                self.items.append((item[0], "polygon", item[1], _rgb(item[2])))
            is_left = ~is_done & self._may_be_seen(pixels, depth)
            triangles = _halved(triangles[is_left])
            colors = numpy.concatenate([colors[is_left]] * 4)

    def _may_be_seen(self, pixels, depth):
        """False for triangles beside the picture. One that is partly behind the camera may be."""
        beside = (pixels.max(axis=1) < 0) | (pixels.min(axis=1) > self.camera.size)
        return ~(beside.any(axis=1) & numpy.isfinite(depth))

    def _add_line(self, world, color):
        pixels, depth = self.camera.project(world)
        for i in range(len(world) - 1):
            if numpy.isfinite(depth[i : i + 2]).all():
                self.items.append((depth[i : i + 2].mean(), "line", pixels[i : i + 2], _rgb(color)))

    def _add_points(self, world, color):
        pixels, depth = self.camera.project(world)
        colors = numpy.broadcast_to(color, (len(world), 3))
        for pixel, distance, own in zip(pixels, depth, colors):
            if numpy.isfinite(distance):
                self.items.append((distance, "point", pixel, _rgb(own)))

    def draw(self):
        image = Image.new("RGB", self.camera.size, BACKGROUND)
        draw = ImageDraw.Draw(image)
        for _, kind, pixels, color in sorted(self.items, key=lambda item: -item[0]):
            corners = [(float(x), float(y)) for x, y in numpy.atleast_2d(pixels)]
            if kind == "polygon":
                draw.polygon(corners, fill=color, outline=color)
            elif kind == "line":
                draw.line(corners, fill=color)
            else:
                (x, y), = corners
                draw.ellipse((x - 1.5, y - 1.5, x + 1.5, y + 1.5), fill=color)
        return image


def _rgb(color):
    return tuple(int(round(255 * min(1.0, max(0.0, float(c))))) for c in color)
