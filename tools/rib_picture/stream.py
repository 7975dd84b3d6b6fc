"""Reads a RIB stream: one statement after the other."""

import re

import numpy

_NUMBERS = re.compile(r"\[([-+0-9.eE\s]*)\]")
_TOKEN = re.compile(r'"((?:[^"\\]|\\.)*)"|([\[\]])|([^\s\[\]"#]+)|#[^\n]*')
_NUMBER = re.compile(r"[-+]?(?:\d+\.?\d*|\.\d+)(?:[eE][-+]?\d+)?$")


def statements(text):
    """Yields each statement as its name and a list of arguments: strings, numbers and arrays.

    An array of numbers is a numpy array. One that is never closed ends before the next statement.
    """
    name, arguments, open_array = None, [], None
    position = 0
    while True:
        numbers = _NUMBERS.match(text, _skip_blanks(text, position))
        if numbers and open_array is None:
            arguments.append(numpy.array(numbers.group(1).split(), dtype=float))
            position = numbers.end()
            continue
        token = _TOKEN.search(text, position)
        if token is None:
            break
        position = token.end()
        string, bracket, word = token.group(1), token.group(2), token.group(3)
        if bracket == "[":
            open_array = []
            arguments.append(open_array)
        elif bracket == "]":
            open_array = None
        elif string is not None or (word is not None and _NUMBER.match(word)):
            value = string if string is not None else float(word)
            (arguments if open_array is None else open_array).append(value)
        elif word is not None:
            if name is not None:
                yield name, arguments
            name, arguments, open_array = word, [], None
    if name is not None:
        yield name, arguments


def _skip_blanks(text, position):
    while position < len(text) and text[position].isspace():
        position += 1
    return position


def parameters(arguments):
    """The parameter list of a statement, by the bare names of its parameters."""
    found = {}
    for i, argument in enumerate(arguments[:-1]):
        if isinstance(argument, str) and not isinstance(arguments[i + 1], str):
            found[argument.split()[-1]] = numpy.atleast_1d(arguments[i + 1])
    return found
