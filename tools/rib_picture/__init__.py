"""Draws a RIB stream without a renderer, to see whether the geometry is right."""
