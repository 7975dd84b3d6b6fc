"""Evaluates B-spline curves and surfaces, trimmed ones included."""

import numpy

STEPS_PER_SPAN = 8
TRIMMED_CELLS = 96


def basis(knots, order, parameters):
    """The basis functions (a row for each parameter), by the recursion of Cox and de Boor."""
    count = len(knots) - order
    parameters = numpy.clip(parameters, knots[order - 1], knots[count])
    last = numpy.max(numpy.nonzero(numpy.diff(knots[: count + 1]))[0])
    span = numpy.clip(numpy.searchsorted(knots, parameters, side="right") - 1, order - 1, last)
    values = numpy.zeros((len(parameters), len(knots) - 1))
    values[numpy.arange(len(parameters)), span] = 1
    for k in range(2, order + 1):
        n = len(knots) - k
        left = knots[k - 1 : k - 1 + n] - knots[:n]
        right = knots[k : k + n] - knots[1 : 1 + n]
        rising = (parameters[:, None] - knots[:n]) / numpy.where(left > 0, left, 1) * (left > 0)
        falling = (knots[k : k + n] - parameters[:, None]) / numpy.where(right > 0, right, 1)
        values = rising * values[:, :n] + falling * (right > 0) * values[:, 1 : n + 1]
    return values


def euclidean(points):
    """Homogeneous points as points in space."""
    return points[..., :-1] / points[..., -1:]


def samples(knots, order, low, high):
    """Parameters from `low` to `high`: each knot between them, and some in each span."""
    breaks = numpy.unique(numpy.concatenate(([low], knots[(knots > low) & (knots < high)], [high])))
    steps = STEPS_PER_SPAN if order > 2 else 1
    parts = [numpy.linspace(a, b, steps, endpoint=False) for a, b in zip(breaks, breaks[1:])]
    return numpy.concatenate(parts + [[high]])


class TrimLoops:
    """The loops of a TrimCurve statement as polygons in the parameters of a patch."""

    def __init__(self, arguments):
        curves_of_loop, order, knots, low, high, count, u, v, w = (
            numpy.atleast_1d(a) for a in arguments
        )
        self.polygons = []
        curve = knot = point = 0
        for curves in curves_of_loop.astype(int):
            parts = []
            for i in range(curve, min(curve + curves, len(order))):
                k, n = int(order[i]), int(count[i])
                cvs = numpy.stack([a[point : point + n] for a in (u, v, w)], axis=1)
                own_knots = knots[knot : knot + k + n]
                at = samples(own_knots, k, low[i], high[i])
                parts.append(euclidean(basis(own_knots, k, at) @ cvs))
                knot, point = knot + k + n, point + n
            curve += curves
            if parts:
                self.polygons.append(numpy.concatenate(parts))

    def contain(self, points):
        """Which points have an odd number of boundaries on one side of them."""
        inside = numpy.zeros(len(points), dtype=bool)
        for polygon in self.polygons:
            for a, b in zip(polygon, numpy.roll(polygon, -1, axis=0)):
                if a[1] == b[1]:
                    continue
                crosses = (a[1] > points[:, 1]) != (b[1] > points[:, 1])
                inside ^= crosses & (
                    points[:, 0] < a[0] + (points[:, 1] - a[1]) * (b[0] - a[0]) / (b[1] - a[1])
                )
        return inside


def patch(arguments, parameters, trims):
    """A NuPatch as vertices and quads (indices); outside of the trims there are none."""
    (nu, ku, knots_u, u0, u1, nv, kv, knots_v, v0, v1) = arguments[:10]
    nu, ku, nv, kv = int(nu), int(ku), int(nv), int(kv)
    if "Pw" in parameters:
        cvs = parameters["Pw"].reshape(nv, nu, 4)
    else:
        cvs = parameters["P"].reshape(nv, nu, 3)
        cvs = numpy.concatenate([cvs, numpy.ones((nv, nu, 1))], axis=2)
    at_u, at_v = samples(knots_u, ku, u0, u1), samples(knots_v, kv, v0, v1)
    if trims is not None:
        at_u, at_v = (_refined(a, TRIMMED_CELLS) for a in (at_u, at_v))
    points = numpy.einsum(
        "uj,vi,ijk->uvk", basis(knots_u, ku, at_u), basis(knots_v, kv, at_v), cvs, optimize=True
    )
    rows, columns = len(at_u), len(at_v)
    corner = (numpy.arange(rows - 1)[:, None] * columns + numpy.arange(columns - 1)).ravel()
    if trims is not None:
        middle_u, middle_v = ((a[1:] + a[:-1]) / 2 for a in (at_u, at_v))
        middles = numpy.stack(numpy.meshgrid(middle_u, middle_v, indexing="ij"), axis=2)
        corner = corner[trims.contain(middles.reshape(-1, 2))]
    quads = numpy.stack([corner, corner + columns, corner + columns + 1, corner + 1], axis=1)
    return euclidean(points.reshape(-1, 4)), quads


def _refined(parameters, cells):
    each = max(1, -(-cells // (len(parameters) - 1)))
    places = numpy.arange((len(parameters) - 1) * each + 1) / each
    return numpy.interp(places, numpy.arange(len(parameters)), parameters)


def curve(knots, order, low, high, cvs):
    """Points along a curve of homogeneous control points."""
    at = samples(knots, order, low, high)
    return euclidean(basis(knots, order, at) @ cvs)
