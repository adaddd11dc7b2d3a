"""The shapes that a model and the updates for it may have, each growing in one direction."""

from dataclasses import dataclass
from typing import Callable

from growth import works
from growth.lines import Further, Total
from growth.models import SYSTEM, Model, items

SIZES_OF_RELATIONS = (1, 20, 200, 2000, 20000, 200000)
NUMBERS_OF_ROWS = (1, 10, 100, 1000, 10000, works.MOST_ROWS)


@dataclass
class Shape:
    """walls(size) tells how many; describe(model, size) writes what they have; rows(size) are the (wall, item) to
    change. things(size) are as many as the model has of the `thing`."""
    name: str
    title: str
    thing: str
    sizes: tuple
    lines: list
    walls: Callable
    describe: Callable
    rows: Callable
    things: Callable = lambda size: size

    def case(self, program, folder, size):
        """Makes the files."""
        paths = [folder / f"{self.name}-{size}{other}.ifc" for other in ("", "-other")]
        for path, value in zip(paths, ("checked", "other")):
            with Model(path, self.walls(size), value) as model:
                self.describe(model, size)
        return works.Case(program, *paths, self.walls(size), self.rows(size))

    def works(self):
        """Each once, in the order of the lines."""
        return list(dict.fromkeys(work for line in self.lines for work in line.works()))


def one_set_each(model, size):
    for wall in model.walls:
        model.property_set([wall], "Pset_Inspection", items(size))


def sets_of_forty(model, size):
    for first in range(1, size + 1, 40):
        model.property_set(model.walls, f"Pset_Part{first // 40}", items(min(40, size + 1 - first), first))


def shared_by_all(name, title, describe, item, *more):
    """A relation that names all walls."""
    rows = [Total(works.IMPORT_ONE), Further(works.IMPORT, works.IMPORT_ONE),
            Further(works.COMMANDS, works.COMMAND_ONE)]
    return Shape(name, title, "element", SIZES_OF_RELATIONS, [*more, *rows], lambda size: size, describe,
                 lambda size: [(wall, item) for wall in range(min(size, 20000))])


def one_wall(name, title, describe, item, asked, *more):
    return Shape(name, title, "row", NUMBERS_OF_ROWS, [Total(works.IMPORT, asked), *more], lambda _: 1, describe,
                 lambda size: [(0, item(number)) for number in range(size)])


SHAPES = [
    Shape("properties", "Properties of each element; 2,000 elements, a row on each", "property", (10, 100, 1000),
          [Total(works.OPEN), Total(works.ITEMS), Total(works.DIFF), Total(works.IMPORT)],
          lambda _: 2000, one_set_each, lambda size: [(wall, f"Item {wall % size + 1}") for wall in range(2000)],
          lambda size: 2000 * size),
    shared_by_all("set", "Elements to which one relation gives one property set, 20,000 rows at most",
                  lambda model, _: model.property_set(model.walls, "Pset_Inspection", items(1)), "Item 1",
                  Total(works.OPEN), Total(works.ITEMS), Total(works.DIFF)),
    shared_by_all("type", "Elements of one type, which has the property set, 20,000 rows at most",
                  lambda model, _: model.type_with_set(model.walls, "Pset_Inspection", items(1)), "Item 1"),
    shared_by_all("classification", "Elements that one relation classifies, 20,000 rows at most",
                  lambda model, _: model.classification(model.walls), SYSTEM),
    one_wall("few", "Rows on one element, which has 40 properties", lambda model, _: sets_of_forty(model, 40),
             lambda number: f"Item {number % 40 + 1}", None),
    one_wall("many", "Rows on one element, each on a property of its own, in sets of 40", sets_of_forty,
             lambda number: f"Item {number + 1}", lambda size: size * size, Total(works.ITEMS), Total(works.DIFF)),
    one_wall("new", "Rows on one element, each making another property in the same set", lambda *_: None,
             lambda number: f"Item {number + 1}[New]", lambda size: size * (size + 1) // 2),
]

# A work's time on this is the cost of starting.
LEAST = Shape("least", "", "", (1,), [], lambda _: 1,
              lambda model, _: model.property_set(model.walls, "Pset_Inspection", items(1)), lambda _: [(0, "Item 1")])
