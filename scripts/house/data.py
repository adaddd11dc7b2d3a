"""What is said about the elements of the sample house: types, properties, quantities, classifications."""

from house.plan import FRONT_DOOR, SOUTH_WALL, House
from house.step import FALSE, TRUE, UNKNOWN, Enum, Typed

OUTER_WALLS = (SOUTH_WALL, "east wall", "north wall", "west wall")
UPPER_WALLS = ("upper south wall", "upper east wall", "upper north wall", "upper west wall")
PARTITIONS = ("middle wall", "kitchen wall", "gallery wall", "bedroom wall")
INNER_DOORS = ("living room door", "kitchen door", "bedroom door")
WINDOWS = ("kitchen window", "west window", "bedroom window", "gallery window")


class DescribedHouse(House):
    def types(self):
        self.section("Types, with the properties that their elements inherit")
        warranty = self.property_set("wall product", "House_Product", (
            ("Manufacturer", "IfcLabel", "Ziegelwerk Höß"),
            ("WarrantyEnd", "IfcDate", "2029-06-30"),
            ("Recyclable", "IfcLogical", TRUE)))
        wall = self.type("IfcWallType", "outer wall", "AW 36,5 Ziegel", (warranty,), Enum("SOLIDWALL"))
        self.typed_by("outer wall", wall, self.of(*OUTER_WALLS, *UPPER_WALLS))

        door_common = self.property_set("inner door", "Pset_DoorCommon", (
            ("FireRating", "IfcLabel", ""),
            ("IsExternal", "IfcBoolean", FALSE),
            ("HandicapAccessible", "IfcBoolean", FALSE)))
        door = self.type("IfcDoorType", "inner door", "Innentür 88,5", (door_common,), Enum("DOOR"),
                         Enum("SINGLE_SWING_LEFT"), FALSE, None)
        self.typed_by("inner door", door, self.of(*INNER_DOORS))

        self.note("The glazing belongs to the type of the windows and to the glass front alike.")
        self.glazing = self.property_set("glazing", "House_Glazing", (
            ("Panes", "IfcInteger", 3),
            ("LightTransmittance", "IfcNormalisedRatioMeasure", 0.72),
            ("SafetyGlass", "IfcBoolean", FALSE)))
        window = self.type("IfcWindowType", "window", "Holzfenster", (self.glazing,), Enum("WINDOW"),
                           Enum("DOUBLE_PANEL_VERTICAL"), FALSE, None)
        self.typed_by("window", window, self.of(*WINDOWS))
        self.wall_type = wall

    def type(self, ifc_class, key, name, sets, *rest):
        return self.root(ifc_class, f"type {key}", self.owner, name, None, None, sets, None, None, None, *rest)

    def properties(self):
        self.section("Properties that several elements share")
        self.note("IsExternal is one instance in the sets of walls, doors and windows.")
        external = self.single("IsExternal", "IfcBoolean", TRUE)
        self.describe("outer walls", "Pset_WallCommon", self.of(*OUTER_WALLS), (
            ("Reference", "IfcIdentifier", "AW-365"), ("FireRating", "IfcLabel", "F 90-AB"),
            ("Combustible", "IfcBoolean", FALSE), external, ("LoadBearing", "IfcBoolean", TRUE),
            ("ThermalTransmittance", "IfcThermalTransmittanceMeasure", 0.21)))
        self.describe("upper walls", "Pset_WallCommon", self.of(*UPPER_WALLS), (
            ("Reference", "IfcIdentifier", "AW-365"), ("FireRating", "IfcLabel", "F 30-B"), external,
            ("LoadBearing", "IfcBoolean", TRUE), ("ThermalTransmittance", "IfcThermalTransmittanceMeasure", 0.21)))
        self.describe("partitions", "Pset_WallCommon", self.of(*PARTITIONS), (
            ("Reference", "IfcIdentifier", "IW-115"), ("FireRating", "IfcLabel", ""),
            ("IsExternal", "IfcBoolean", FALSE), ("LoadBearing", "IfcBoolean", FALSE),
            ("AcousticRating", "IfcLabel", "37 dB")))
        self.describe("front door", "Pset_DoorCommon", self.of(FRONT_DOOR), (
            ("Reference", "IfcIdentifier", "HT-01"), ("FireRating", "IfcLabel", "T 30"), external,
            ("HandicapAccessible", "IfcBoolean", FALSE), ("SecurityRating", "IfcLabel", "RC 2")))
        self.describe("windows", "Pset_WindowCommon", self.of(*WINDOWS, "shoji window"), (
            ("Reference", "IfcIdentifier", "HF-3"), external,
            ("ThermalTransmittance", "IfcThermalTransmittanceMeasure", 0.8)))
        self.give("glazing", self.glazing, self.of("glass front"))

        self.section("The survey of the south wall: a property of every kind")
        self.describe("survey", "House_Survey", self.of(SOUTH_WALL), self.survey())
        self.quantities("south wall", "Qto_WallBaseQuantities", self.elements[SOUTH_WALL], (
            ("Length", "Length", 10.0), ("Length", "Width", 0.36), ("Length", "Height", 2.6),
            ("Area", "NetSideArea", 21.35), ("Volume", "NetVolume", 7.686)))

        self.section("Properties of single elements")
        self.room_properties()
        self.furniture_properties()
        self.other_properties()

    def survey(self):
        label, moisture = "IfcLabel", "IfcPositiveRatioMeasure"
        conditions = tuple(Typed(label, text) for text in ("gut", "mäßig", "schlecht"))
        coats = tuple(Typed(label, text) for text in ("Grundputz", "Oberputz", "Anstrich"))
        years = tuple(Typed("IfcInteger", year) for year in (2003, 2013, 2023))
        widths = tuple(Typed("IfcPositiveLengthMeasure", width) for width in (0.0001, 0.0002, 0.0002))
        enumeration = self.add("IfcPropertyEnumeration", "House_Condition", conditions, None)
        return (
            ("Layers", "IfcInteger", 4),
            ("Moisture", "IfcReal", 0.5),
            ("Plumb", "IfcBoolean", TRUE),
            ("Listed", "IfcLogical", UNKNOWN),
            ("Inspector", label, "Jürgen Weiß"),
            ("Remark", "IfcText", "Sockel trocken, Putz an der Ecke erneuert; sonst o. B."),
            ("Thickness", "IfcPositiveLengthMeasure", 0.36),
            ("InspectedOn", "IfcDate", "2023-10-04"),
            self.add("IfcPropertyListValue", "Coats", None, coats, None),
            self.add("IfcPropertyBoundedValue", "MoistureRange", None, Typed(moisture, 0.7), Typed(moisture, 0.3), None,
                     Typed(moisture, 0.5)),
            self.add("IfcPropertyEnumeratedValue", "Condition", None, conditions[:1], enumeration),
            self.add("IfcPropertyTableValue", "Cracks", None, years, widths, "width by year", None, None,
                     Enum("LINEAR")),
            self.add("IfcPropertyReferenceValue", "Mason", None, "built by", self.mason),
        )

    def room_properties(self):
        rooms = (("kitchen", "Küche", 2, 17.0), ("hall", "Diele", 0, 16.0), ("living room", "Wohnen", 6, 32.0),
                 ("gallery", "Galerie", 0, 33.0), ("bedroom", "Schlafen", 2, 16.0), ("japanese room", "和室", 3, 16.0))
        for key, use, people, area in rooms:
            self.describe(f"{key} common", "Pset_SpaceCommon", self.of(key), (
                ("Reference", "IfcIdentifier", use), ("IsExternal", "IfcBoolean", FALSE),
                ("NetPlannedArea", "IfcAreaMeasure", area), ("PubliclyAccessible", "IfcBoolean", FALSE)))
            self.describe(f"{key} occupancy", "Pset_SpaceOccupancyRequirements", self.of(key), (
                ("OccupancyType", "IfcLabel", use), ("OccupancyNumber", "IfcCountMeasure", people)))

    def furniture_properties(self):
        pieces = (("table", "Eiche, geölt", 48.5, "2021-11-20", 1280.0), ("sofa", "grau", 75.0, "2019-03-02", 1899.0),
                  ("bed", "Buche", 62.0, "2019-03-02", 940.0), ("low table", "檜 (Hinoki)", 14.5, "2022-08-15", 610.0))
        for key, finish, mass, bought, price in pieces:
            self.describe(key, "House_Furniture", self.of(key), (
                ("Finish", "IfcLabel", finish), ("Weight", "IfcMassMeasure", mass), ("BoughtOn", "IfcDate", bought),
                ("Price", "IfcMonetaryMeasure", price), ("Movable", "IfcBoolean", TRUE)))

    def other_properties(self):
        for key, watts, sources in (("pendant lamp", 12.0, 1), ("paper lamp", 4.5, 1)):
            self.describe(key, "Pset_LightFixtureTypeCommon", self.of(key), (
                ("NumberOfSources", "IfcInteger", sources), ("TotalWattage", "IfcPowerMeasure", watts)))
        self.describe("stair", "Pset_StairCommon", self.of("stair"), (
            ("NumberOfRiser", "IfcCountMeasure", 14), ("RiserHeight", "IfcPositiveLengthMeasure", 0.2071),
            ("FireExit", "IfcBoolean", FALSE)))
        self.describe("roof", "Pset_RoofCommon", self.of("roof"), (
            ("ThermalTransmittance", "IfcThermalTransmittanceMeasure", 0.14), ("IsExternal", "IfcBoolean", TRUE)))
        self.describe("slabs", "Pset_SlabCommon", self.of("base slab", "floor slab"), (
            ("LoadBearing", "IfcBoolean", TRUE), ("FireRating", "IfcLabel", "F 90-A")))
        self.describe("posts", "Pset_ColumnCommon", self.of("west post", "east post"), (
            ("LoadBearing", "IfcBoolean", TRUE), ("Roll", "IfcPlaneAngleMeasure", 0.0)))
        self.describe("heat pump", "House_Equipment", self.of("heat pump"), (
            ("RatedPower", "IfcPowerMeasure", 6500.0), ("Commissioned", "IfcBoolean", FALSE)))

    def classifications(self):
        self.section("Classifications")
        sections = self.add("IfcClassification", "CSI", "2012", None, "MasterFormat2012", None, None, None)
        elements = self.add("IfcClassification", "CSI", "2010", None, "UniFormat", None, None, None)
        costs = self.add("IfcClassification", "DIN", "2018-12", None, "DIN 276", None, None, None)
        spec, uni = "SpecSection Classification", "UniFormat Classification"
        walls = self.of(*OUTER_WALLS, *UPPER_WALLS)
        self.classify("masonry", spec, sections, "04 21 13", "Brick Masonry", walls)
        self.classify("outer walls", uni, elements, "B2010", "Exterior Walls", walls)
        self.classify("front door uni", uni, elements, "B2050", "Exterior Doors and Grilles", self.of(FRONT_DOOR))
        self.classify("front door spec", spec, sections, "08 14 00", "Wood Doors", self.of(FRONT_DOOR))
        self.classify("windows", uni, elements, "B2020", "Exterior Windows", self.of(*WINDOWS, "shoji window"))
        self.classify("roof", uni, elements, "B3010", "Roofing", self.of("roof"))
        self.classify("partitions", uni, elements, "C1010", "Interior Partitions", self.of(*PARTITIONS))
        self.note("The label of this one is the classification's own name; it stands at the type of the outer walls.")
        self.classify("costs", "", costs, "331", "Tragende Außenwände", (self.wall_type,))

    def data_section(self, houses=1):
        """The lines of one house, or of several on one project."""
        self.context()
        for self.house in range(houses):
            self.elements, self.placements = {}, {}
            for chapter in (self.spatial, self.ground_floor, self.upper_floor, self.outside, self.containment,
                            self.types, self.properties, self.classifications):
                chapter()
        return self.lines
