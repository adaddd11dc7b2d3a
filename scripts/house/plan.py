"""The sample house: what stands where, and what is said about it.

Two storeys of 10 m by 8 m. The ground floor has a kitchen, a hall with the stair and a living room behind a glass
front; the upper floor a gallery, a bedroom and a Japanese room. Lengths in metres, x to the east, y to the north.
"""

from house.builder import Builder
from house.step import DERIVED, Enum, Typed

WALL, PARTITION = 0.36, 0.12
STOREY_HEIGHT, ROOM_HEIGHT, SLAB = 2.9, 2.6, 0.3

# The lookup dialog opens with the first of these two GUIDs: it must show something of every kind.
SOUTH_WALL = "4B77F0F7-86AA-47AF-8EC8-2D488F3BA8D9"
FRONT_DOOR = "A32931C7-B3B2-4117-8D6A-3038DD4E9A78"


class House(Builder):
    def __init__(self):
        super().__init__()
        self.house = 0          # Which of several.
        self.elements = {}      # By key.
        self.placements = {}    # By key.

    def root(self, ifc_class, key, owner, *values):
        return super().root(ifc_class, f"house {self.house}: {key}" if self.house else key, owner, *values)

    def place(self, key, storey, at, along=None):
        self.placements[key] = self.placement(self.placements[storey], at, along)
        return self.placements[key]

    def of(self, *keys):
        return [self.elements[key] for key in keys]

    # --- What everything rests on ---

    def context(self):
        self.section("Who drew this, and with what")
        person = self.add("IfcPerson", None, "Sommer", "Käthe", None, None, None, None, None)
        office = self.add("IfcOrganization", None, "Büro für Baukunst", None, None, None)
        both = self.add("IfcPersonAndOrganization", person, office, None)
        program = self.add("IfcApplication", office, "1.0", "Sample house", "sample-house")
        self.owner = self.add("IfcOwnerHistory", both, program, None, Enum("NOCHANGE"), None, None, None, 1700000000)
        self.mason = self.add("IfcOrganization", None, "Maurermeister Groß", "Rohbau", None, None)

        self.section("Units: metres, kilograms, seconds, degrees")
        units = self.units()

        self.section("Project")
        origin = self.add("IfcAxis2Placement3D", self.point(0, 0, 0), None, None)
        model = self.add("IfcGeometricRepresentationContext", None, "Model", 3, 1e-05, origin, None)
        self.body = self.subcontext("Body", model, "MODEL_VIEW")
        self.plan = self.subcontext("FootPrint", model, "PLAN_VIEW")
        self.project = self.root("IfcProject", "project", self.owner, "Haus am Weiher", "A small house, for trying out",
                                 None, None, None, (model,), units)

    def subcontext(self, name, model, view):
        return self.add("IfcGeometricRepresentationSubContext", name, "Model", DERIVED, DERIVED, DERIVED, DERIVED,
                        model, None, Enum(view), None)

    def units(self):
        def si(kind, name, prefix=None):
            return self.add("IfcSIUnit", DERIVED, Enum(kind), Enum(prefix) if prefix else None, Enum(name))

        length, area = si("LENGTHUNIT", "METRE"), si("AREAUNIT", "SQUARE_METRE")
        volume, mass = si("VOLUMEUNIT", "CUBIC_METRE"), si("MASSUNIT", "GRAM", "KILO")
        time, power = si("TIMEUNIT", "SECOND"), si("POWERUNIT", "WATT")
        kelvin, radian = si("THERMODYNAMICTEMPERATUREUNIT", "KELVIN"), si("PLANEANGLEUNIT", "RADIAN")
        factor = self.add("IfcMeasureWithUnit", Typed("IfcPlaneAngleMeasure", 0.017453292519943295), radian)
        exponents = self.add("IfcDimensionalExponents", 0, 0, 0, 0, 0, 0, 0)
        degree = self.add("IfcConversionBasedUnit", exponents, Enum("PLANEANGLEUNIT"), "DEGREE", factor)
        parts = tuple(self.add("IfcDerivedUnitElement", unit, exponent)
                      for unit, exponent in ((power, 1), (area, -1), (kelvin, -1)))
        transmittance = self.add("IfcDerivedUnit", parts, Enum("THERMALTRANSMITTANCEUNIT"), None)
        euro = self.add("IfcMonetaryUnit", "EUR")
        return self.add("IfcUnitAssignment",
                        (length, area, volume, mass, time, power, kelvin, degree, transmittance, euro))

    def spatial(self):
        self.section("Site, building, storeys")
        element = Enum("ELEMENT")
        self.placements["site"] = self.placement(None, (0, 0, 0))
        site = self.root("IfcSite", "site", self.owner, "Grundstück am Weiher", None, None, self.placements["site"],
                         None, None, element, (48, 8, 15, 0), (11, 34, 30, 0), 519.5, None, None)
        self.place("building", "site", (12, 9, 0))
        building = self.root("IfcBuilding", "building", self.owner, "Haus am Weiher", None, None,
                             self.placements["building"], None, None, element, None, None, None)
        self.storey("ground", "Erdgeschoss", 0.0)
        self.storey("upper", "Obergeschoss", STOREY_HEIGHT)
        self.elements |= {"site": site, "building": building}
        self.aggregate("project", self.project, (site,))
        self.aggregate("site", site, (building,))
        self.aggregate("building", building, self.of("ground", "upper"))

    def storey(self, key, name, elevation):
        placement = self.place(key, "building", (0, 0, elevation))
        self.elements[key] = self.root("IfcBuildingStorey", f"storey {key}", self.owner, name, None, None, placement,
                                       None, None, Enum("ELEMENT"), elevation)

    # --- Elements ---

    def wall(self, storey, key, name, at, along, length, thickness=WALL, tag=None):
        placement = self.place(key, storey, (*at, 0), along)
        kind = "SOLIDWALL" if thickness == WALL else "PARTITIONING"
        shape = self.box(length, thickness, ROOM_HEIGHT)
        self.elements[key] = self.element("IfcWall", key, name, placement, shape, tag, Enum(kind))

    def door(self, wall, key, name, x, width, height=2.1, thickness=WALL, operation="SINGLE_SWING_LEFT"):
        at, hole = self.opening(key, name, self.elements[wall], self.placements[wall], (x, 0, 0), width, height,
                                thickness)
        placement = self.placement(at, (0, thickness / 2 - 0.03, 0))
        self.elements[key] = self.element("IfcDoor", key, name, placement, self.box(width, 0.06, height), None,
                                          float(height), float(width), Enum("DOOR"), Enum(operation), None)
        self.fill(key, hole, self.elements[key])

    def window(self, wall, key, name, x, width, height=1.3, sill=0.9, partitioning="DOUBLE_PANEL_VERTICAL"):
        at, hole = self.opening(key, name, self.elements[wall], self.placements[wall], (x, 0, sill), width, height,
                                WALL)
        placement = self.placement(at, (0, 0.12, 0))
        self.elements[key] = self.element("IfcWindow", key, name, placement, self.box(width, 0.08, height), None,
                                          float(height), float(width), Enum("WINDOW"), Enum(partitioning), None)
        self.fill(key, hole, self.elements[key])

    def space(self, storey, key, number, name, corner, width, depth):
        placement = self.place(key, storey, (*corner, 0))
        shape = self.box(width, depth, ROOM_HEIGHT)
        self.elements[key] = self.root("IfcSpace", key, self.owner, number, None, None, placement, shape, name,
                                       Enum("ELEMENT"), Enum("INTERNAL"), None)
        self.quantities(key, "Qto_SpaceBaseQuantities", self.elements[key],
                        (("Area", "NetFloorArea", round(width * depth, 4)), ("Length", "Height", ROOM_HEIGHT)))

    def thing(self, ifc_class, storey, key, name, at, size, kind, tag=None):
        """A box-shaped element that stands free."""
        self.elements[key] = self.element(ifc_class, key, name, self.place(key, storey, at), self.box(*size), tag,
                                          Enum(kind))

    def slab(self, storey, key, name, kind):
        placement = self.place(key, storey, (0, 0, -SLAB))
        self.elements[key] = self.element("IfcSlab", key, name, placement,
                                          self.prism(((0, 0), (10, 0), (10, 8), (0, 8)), SLAB), None, Enum(kind))

    def ground_floor(self):
        self.section("Ground floor: walls and slab")
        self.slab("ground", "base slab", "Bodenplatte", "BASESLAB")
        self.wall("ground", SOUTH_WALL, "Außenwand Süd", (0, 0), None, 10, tag="AW-01")
        self.wall("ground", "east wall", "Außenwand Ost", (10, WALL), (0, 1), 8 - WALL, tag="AW-02")
        self.wall("ground", "north wall", "Außenwand Nord", (5, 8), (-1, 0), 5, tag="AW-03")
        self.wall("ground", "west wall", "Außenwand West", (0, 8 - WALL), (0, -1), 8 - 2 * WALL, tag="AW-04")
        self.wall("ground", "middle wall", "Innenwand Wohnzimmer", (WALL, 4), None, 10 - 2 * WALL, PARTITION, "IW-01")
        self.wall("ground", "kitchen wall", "Innenwand Küche", (5.12, WALL), (0, 1), 4 - WALL, PARTITION, "IW-02")
        self.thing("IfcCurtainWall", "ground", "glass front", "Glasfront zum Garten", (5, 7.85, 0),
                   (4.64, 0.15, ROOM_HEIGHT), "NOTDEFINED", "GF-01")

        self.section("Ground floor: doors and windows")
        self.door(SOUTH_WALL, FRONT_DOOR, "Haustür", 6.4, 1.1)
        self.door("middle wall", "living room door", "Wohnzimmertür", 6.2, 0.885, thickness=PARTITION)
        self.door("kitchen wall", "kitchen door", "Küchentür", 2.2, 0.885, thickness=PARTITION,
                  operation="SINGLE_SWING_RIGHT")
        self.window(SOUTH_WALL, "kitchen window", "Küchenfenster", 1.6, 1.8)
        self.window("west wall", "west window", "Wohnzimmerfenster West", 1.4, 1.4)

        self.section("Ground floor: rooms")
        self.space("ground", "kitchen", "001", "Küche", (WALL, WALL), 4.64, 3.64)
        self.space("ground", "hall", "002", "Diele", (5.12, WALL), 4.52, 3.64)
        self.space("ground", "living room", "003", "Wohnzimmer", (WALL, 4.12), 9.28, 3.52)

        self.section("Ground floor: what stands in the rooms")
        self.thing("IfcFurniture", "ground", "worktop", "Küchenzeile", (0.4, 0.4, 0), (0.6, 3.4, 0.92), "NOTDEFINED")
        self.thing("IfcFurniture", "ground", "table", "Esstisch", (1.6, 5.2, 0), (2.0, 1.0, 0.75), "TABLE")
        self.thing("IfcFurniture", "ground", "sofa", "Sofa", (6.4, 4.6, 0), (2.2, 0.9, 0.8), "SOFA")
        self.thing("IfcLightFixture", "ground", "pendant lamp", "Pendelleuchte", (2.4, 5.5, 1.6), (0.4, 0.4, 0.3),
                   "POINTSOURCE")
        self.stair()

    def stair(self):
        """Fourteen risers along the east wall; the flight is a part of the stair."""
        risers, tread = 14, 0.25
        rise = round(STOREY_HEIGHT / risers, 4)
        steps = [(0.0, 0.0)]
        for step in range(risers):
            steps += [(round(step * tread, 4), round((step + 1) * rise, 4)),
                      (round((step + 1) * tread, 4), round((step + 1) * rise, 4))]
        steps.append((risers * tread, 0.0))
        placement = self.place("stair", "ground", (8.64, 0.42, 0))
        outline = ((0, 0), (1, 0), (1, risers * tread), (0, risers * tread))
        shape = self.shape(self.side_profile(steps, 1), self.footprint(outline))
        flight = self.element("IfcStairFlight", "stair flight", "Treppenlauf", self.placement(placement, (0, 0, 0)),
                              shape, None, risers, risers - 1, rise, tread, Enum("STRAIGHT"))
        self.elements["stair"] = self.element("IfcStair", "stair", "Treppe", placement, None, "TR-01",
                                              Enum("STRAIGHT_RUN_STAIR"))
        self.aggregate("stair", self.elements["stair"], (flight,))

    def upper_floor(self):
        self.section("Upper floor: walls and slab")
        self.slab("upper", "floor slab", "Geschossdecke", "FLOOR")
        self.opening("stairwell", "Treppe", self.elements["floor slab"], self.placements["floor slab"],
                     (8.64, 0.42, 0), 1, SLAB, 3.5)
        self.wall("upper", "upper south wall", "Außenwand Süd OG", (0, 0), None, 10, tag="AW-11")
        self.wall("upper", "upper east wall", "Außenwand Ost OG", (10, WALL), (0, 1), 8 - 2 * WALL, tag="AW-12")
        self.wall("upper", "upper north wall", "Außenwand Nord OG", (10, 8), (-1, 0), 10, tag="AW-13")
        self.wall("upper", "upper west wall", "Außenwand West OG", (0, 8 - WALL), (0, -1), 8 - 2 * WALL, tag="AW-14")
        self.wall("upper", "gallery wall", "Innenwand Galerie", (WALL, 4), None, 10 - 2 * WALL, PARTITION, "IW-11")
        self.wall("upper", "bedroom wall", "Innenwand Schlafzimmer", (5.12, 4.12), (0, 1), 3.52, PARTITION, "IW-12")

        self.section("Upper floor: doors and windows")
        self.door("gallery wall", "bedroom door", "Schlafzimmertür", 2.2, 0.885, thickness=PARTITION)
        self.door("gallery wall", "sliding door", "襖 (Schiebetür)", 6.0, 1.6, 1.9, PARTITION, "DOUBLE_DOOR_SLIDING")
        self.window("upper north wall", "shoji window", "障子窓", 1.6, 1.8, 1.5, 0.6, "TRIPLE_PANEL_VERTICAL")
        self.window("upper north wall", "bedroom window", "Schlafzimmerfenster", 6.6, 1.4)
        self.window("upper south wall", "gallery window", "Galeriefenster", 2.4, 1.2)

        self.section("Upper floor: rooms")
        self.space("upper", "gallery", "101", "Galerie", (WALL, WALL), 9.28, 3.64)
        self.space("upper", "bedroom", "102", "Schlafzimmer", (WALL, 4.12), 4.64, 3.52)
        self.space("upper", "japanese room", "103", "和室 (Gästezimmer)", (5.12, 4.12), 4.52, 3.52)

        self.section("Upper floor: what stands in the rooms")
        self.thing("IfcFurniture", "upper", "bed", "Bett", (1.4, 5.4, 0), (1.8, 2.1, 0.5), "BED")
        self.thing("IfcFurniture", "upper", "low table", "座卓", (6.9, 5.4, 0), (1.2, 0.8, 0.33), "TABLE")
        self.thing("IfcLightFixture", "upper", "paper lamp", "行灯", (9.1, 7.1, 0), (0.3, 0.3, 0.6), "POINTSOURCE")
        self.thing("IfcRailing", "upper", "railing", "Geländer Galerie", (8.55, 0.42, 0), (0.05, 3.5, 1.0), "GUARDRAIL")

        self.section("Roof")
        chevron = ((-0.5, -0.3), (4, 2.4), (8.5, -0.3), (8.5, 0), (4, 2.7), (-0.5, 0))
        placement = self.place("roof", "upper", (-0.5, 0, ROOM_HEIGHT + 0.3))
        outline = ((0, -0.5), (11, -0.5), (11, 8.5), (0, 8.5))
        shape = self.shape(self.side_profile(chevron, 11), self.footprint(outline))
        self.elements["roof"] = self.element("IfcRoof", "roof", "Satteldach", placement, shape, "DA-01",
                                             Enum("GABLE_ROOF"))

    def outside(self):
        self.section("Terrace and garden")
        self.thing("IfcColumn", "ground", "west post", "Pfosten West", (5.2, 10.5, 0), (0.14, 0.14, 2.4), "COLUMN")
        self.thing("IfcColumn", "ground", "east post", "Pfosten Ost", (9.3, 10.5, 0), (0.14, 0.14, 2.4), "COLUMN")
        self.thing("IfcBeam", "ground", "terrace beam", "Pfette Terrasse", (5.0, 10.5, 2.4), (4.64, 0.14, 0.2), "BEAM")
        self.note("The heat pump: nobody has given it a name yet.")
        self.thing("IfcBuildingElementProxy", "ground", "heat pump", "", (-1.6, 2.0, 0), (0.9, 0.9, 1.1), "ELEMENT")
        self.thing("IfcGeographicElement", "site", "garden", "Garten", (0, 0, -0.5), (34, 26, 0.2), "TERRAIN")

    def containment(self):
        self.section("What stands on which storey")
        rooms = {"ground": ("kitchen", "hall", "living room"), "upper": ("gallery", "bedroom", "japanese room")}
        for storey, spaces in rooms.items():
            self.aggregate(f"rooms {storey}", self.elements[storey], self.of(*spaces))
        self.contain("garden", self.elements["site"], self.of("garden"))
        self.contain("ground", self.elements["ground"], self.of(
            "base slab", SOUTH_WALL, "east wall", "north wall", "west wall", "middle wall", "kitchen wall",
            "glass front", FRONT_DOOR, "living room door", "kitchen door", "kitchen window", "west window", "stair",
            "west post", "east post", "terrace beam", "heat pump"))
        self.contain("kitchen", self.elements["kitchen"], self.of("worktop"))
        self.contain("living room", self.elements["living room"], self.of("table", "sofa", "pendant lamp"))
        self.contain("upper", self.elements["upper"], self.of(
            "floor slab", "upper south wall", "upper east wall", "upper north wall", "upper west wall", "gallery wall",
            "bedroom wall", "bedroom door", "sliding door", "shoji window", "bedroom window", "gallery window",
            "railing", "roof"))
        self.contain("bedroom", self.elements["bedroom"], self.of("bed"))
        self.contain("japanese room", self.elements["japanese room"], self.of("low table", "paper lamp"))
