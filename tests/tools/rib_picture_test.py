"""Tests of tools/rib-picture: draws small streams and looks at pixels."""

import os
import subprocess
import tempfile
import unittest

from PIL import Image

TOOL = os.path.join(os.path.dirname(__file__), "..", "..", "tools", "rib-picture")
BACKGROUND = (236, 238, 241)

# Looks down at the square from -2 to 2: 50 pixels a unit.
HEAD = """Format 200 200 1
ScreenWindow -2 2 -2 2
Projection "orthographic"
ConcatTransform [ 1 0 0 0.0 0 1 0 0.0 0 0 -1 0.0 0 0 10 1.0 ]
WorldBegin
"""
SQUARE = 'NuPatch 2 2 [0 0 1 1 ] 0 1 2 2 [0 0 1 1 ] 0 1 "P" [-1 -1 0 1 -1 0 -1 1 0 1 1 0 ]\n'
# The unit square's sides, and a circle about its middle.
TRIMS = (
    "TrimCurve [ 1 1 ] [ 2 3 ] [ 0 0 1 2 3 4 4 0 0 0 1 1 2 2 3 3 4 4 4 ] [ 0 0 ] [ 4 4 ] [ 5 9 ] "
    "[ 0 1 1 0 0 0.75 0.53033 0.5 0.176777 0.25 0.176777 0.5 0.53033 0.75 ] "
    "[ 0 0 1 1 0 0.5 0.53033 0.75 0.53033 0.5 0.176777 0.25 0.176777 0.5 ] "
    "[ 1 1 1 1 1 1 0.707107 1 0.707107 1 0.707107 1 0.707107 1 ]\n"
)


class RibPicture(unittest.TestCase):
    def run_tool(self, text, *options):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        scene = os.path.join(folder.name, "scene.rib")
        self.picture = os.path.join(folder.name, "scene.png")
        with open(scene, "w", encoding="utf-8") as file:
            file.write(text)
        return subprocess.run(
            [TOOL, scene, self.picture, *options], capture_output=True, text=True, timeout=60)

    def draw(self, text, *options):
        result = self.run_tool(text, *options)
        self.assertEqual(result.returncode, 0, result.stderr)
        return Image.open(self.picture)

    def test_a_patch_covers_its_square(self):
        image = self.draw(HEAD + "Color 0 0 1\n" + SQUARE)
        self.assertEqual(image.size, (200, 200))
        self.assertEqual(image.getpixel((100, 100)), (0, 0, 255))
        self.assertEqual(image.getpixel((55, 145)), (0, 0, 255))
        self.assertEqual(image.getpixel((40, 100)), BACKGROUND)

    def test_a_trimmed_patch_has_a_hole(self):
        image = self.draw(HEAD + "Color 0 0 1\n" + TRIMS + SQUARE)
        self.assertEqual(image.getpixel((100, 100)), BACKGROUND)
        self.assertEqual(image.getpixel((60, 60)), (0, 0, 255))

    def test_a_trim_ends_with_its_block(self):
        image = self.draw(HEAD + "AttributeBegin\n" + TRIMS + "AttributeEnd\n" + SQUARE)
        self.assertNotEqual(image.getpixel((100, 100)), BACKGROUND)

    def test_a_side_seen_from_behind_is_red(self):
        front = self.draw(HEAD + "Color 0 0 1\n" + SQUARE, "--sides")
        self.assertEqual(front.getpixel((100, 100)), (0, 0, 255))
        back = self.draw(HEAD + "Color 0 0 1\nReverseOrientation\n" + SQUARE, "--sides")
        red, green, blue = back.getpixel((100, 100))
        self.assertTrue(red > green and red > blue)

    def test_an_archive_stands_where_it_is_placed(self):
        image = self.draw(
            HEAD + 'ArchiveBegin "Block_7"\nColor 0 1 0\n' + SQUARE + "ArchiveEnd\n"
            "AttributeBegin\n"
            "ConcatTransform [0.1 0 0 0  0 0.1 0 0  0 0 1 0  1.5 0 0 1]\n"
            'ArchiveInstance "Block_7"\nAttributeEnd\n')
        self.assertEqual(image.getpixel((175, 100)), (0, 255, 0))
        self.assertEqual(image.getpixel((100, 100)), BACKGROUND)

    def test_polygons_lines_and_points(self):
        image = self.draw(
            HEAD + "Color 1 0 0\n"
            'PointsPolygons [ 4 ] [0 1 2 3 ]\n "P" [ -1 -1 0 0 -1 0 0 0 0 -1 0 0 ]\n'
            "Color 0 0 0\n"
            'Curves "linear" [2] "nonperiodic" "P" [ -1 1 0 1 1 0 ] "constantwidth" [1]\n'
            'NuCurves [3] [3] [0 0 0 1 1 1] [0] [1] "P" [1 0 0 1 -1 0 1 -1 0 ] "constantwidth" [1]\n'
            'Points "P" [1.5 1.5 0 ]\n"constantwidth" [1]\n"varying color Cs" [0 1 0 \n')
        self.assertEqual(image.getpixel((75, 125)), (255, 0, 0))
        self.assertEqual(image.getpixel((100, 50)), (0, 0, 0))
        self.assertEqual(image.getpixel((150, 110)), (0, 0, 0))
        self.assertEqual(image.getpixel((175, 25)), (0, 255, 0))

    def test_what_is_nearer_hides_what_is_farther(self):
        image = self.draw(
            HEAD + "Color 0 0 1\nTranslate 0 0 1\n" + SQUARE
            + "Color 1 0 0\nTranslate 0 0 -2\n" + SQUARE)
        self.assertEqual(image.getpixel((100, 100)), (0, 0, 255))

    def test_what_is_not_known_is_told(self):
        result = self.run_tool(HEAD + 'Blobby 1 [1001 0 ]\nArchiveInstance "Block_1"\n')
        self.assertEqual(result.returncode, 0)
        self.assertEqual(result.stderr, "not drawn: Blobby (1)\nnot drawn: Block_1 (1)\n")

    def test_a_broken_stream_is_told(self):
        result = self.run_tool(HEAD + 'NuPatch 2 2 [0 0 1 1 ] 0 1 "P" [0 0 0 ]\n')
        self.assertNotEqual(result.returncode, 0)
        self.assertIn("has a statement that can't be drawn", result.stderr)

    def test_a_missing_stream_is_told(self):
        result = subprocess.run(
            [TOOL, "nowhere.rib", "nowhere.png"], capture_output=True, text=True, timeout=60)
        self.assertNotEqual(result.returncode, 0)
        self.assertIn("nowhere.rib", result.stderr)


if __name__ == "__main__":
    unittest.main()
