"""The vocabulary of the sample house: placements, solids, elements, property sets, classifications."""

from house.step import Enum, Ref, Typed, Writer


class Builder(Writer):
    def __init__(self):
        super().__init__()
        self.owner = None
        self.body = self.plan = None  # Representation contexts.
        self.directions = {}

    # --- Geometry. Lengths in metres. ---

    def point(self, *coordinates):
        return self.add("IfcCartesianPoint", tuple(float(c) for c in coordinates))

    def direction(self, *ratios):
        if ratios not in self.directions:
            self.directions[ratios] = self.add("IfcDirection", tuple(float(r) for r in ratios))
        return self.directions[ratios]

    def placement(self, parent, at, along=None):
        """@param along  The local x axis seen from above; None for the parent's."""
        axis = self.direction(0, 0, 1) if along else None
        x = self.direction(*along, 0) if along else None
        frame = self.add("IfcAxis2Placement3D", self.point(*at), axis, x)
        return self.add("IfcLocalPlacement", parent, frame)

    def shape(self, *representations):
        return self.add("IfcProductDefinitionShape", None, None, representations)

    def solid(self, profile, height, base=0.0):
        """A profile extruded upwards, starting `base` above the placement."""
        frame = self.add("IfcAxis2Placement3D", self.point(0, 0, base), None, None)
        item = self.add("IfcExtrudedAreaSolid", profile, frame, self.direction(0, 0, 1), float(height))
        return self.add("IfcShapeRepresentation", self.body, "Body", "SweptSolid", (item,))

    def rectangle(self, x, y, width, depth):
        """A rectangle profile whose lower left corner is (x, y)."""
        centre = self.add("IfcAxis2Placement2D", self.point(x + width / 2, y + depth / 2), None)
        return self.add("IfcRectangleProfileDef", Enum("AREA"), None, centre, float(width), float(depth))

    def box(self, width, depth, height, x=0.0, y=0.0, base=0.0):
        return self.shape(self.solid(self.rectangle(x, y, width, depth), height, base))

    def outline(self, corners):
        """A closed polygon in one line."""
        closed = (*corners, corners[0])
        points = self.add("IfcCartesianPointList2D", tuple(tuple(float(c) for c in corner) for corner in closed))
        return self.add("IfcIndexedPolyCurve", points, None, None)

    def polygon(self, corners):
        return self.add("IfcArbitraryClosedProfileDef", Enum("AREA"), None, self.outline(corners))

    def prism(self, corners, height, base=0.0):
        return self.shape(self.solid(self.polygon(corners), height, base))

    def side_profile(self, corners, length):
        """A polygon in the local y-z plane, drawn out along x: a flight of steps, a gable roof."""
        frame = self.add("IfcAxis2Placement3D", self.point(0, 0, 0), self.direction(1, 0, 0), self.direction(0, 1, 0))
        item = self.add("IfcExtrudedAreaSolid", self.polygon(corners), frame, self.direction(0, 0, 1), float(length))
        return self.add("IfcShapeRepresentation", self.body, "Body", "SweptSolid", (item,))

    def footprint(self, corners):
        """What a floor plan shows of a solid that is not drawn out upwards."""
        return self.add("IfcShapeRepresentation", self.plan, "FootPrint", "Curve2D", (self.outline(corners),))

    # --- Elements ---

    def element(self, ifc_class, key, name, placement, shape, tag, *rest, description=None, object_type=None):
        """An instance of a subtype of IfcElement. @param rest  The attributes after Tag."""
        return self.root(ifc_class, key, self.owner, name, description, object_type, placement, shape, tag, *rest)

    def opening(self, key, name, host, host_placement, at, width, height, depth):
        """A hole through a wall or slab, for what is called `name`. @return its placement, and the element."""
        placement = self.placement(host_placement, at)
        hole = self.element("IfcOpeningElement", f"opening {key}", f"Öffnung {name}", placement,
                            self.box(width, depth, height), None, Enum("OPENING"))
        self.relate("IfcRelVoidsElement", key, None, host, hole)
        return placement, hole

    def fill(self, key, hole, element):
        return self.relate("IfcRelFillsElement", key, None, hole, element)

    # --- Relations ---

    def relate(self, ifc_class, key, name, *ends):
        return self.root(ifc_class, f"{ifc_class} {key}", self.owner, name, None, *ends)

    def aggregate(self, key, whole, parts):
        return self.relate("IfcRelAggregates", key, None, whole, tuple(parts))

    def contain(self, key, structure, elements):
        return self.relate("IfcRelContainedInSpatialStructure", key, None, tuple(elements), structure)

    def typed_by(self, key, type_object, elements):
        return self.relate("IfcRelDefinesByType", key, None, tuple(elements), type_object)

    # --- Properties ---

    def single(self, name, ifc_type, value):
        return self.add("IfcPropertySingleValue", name, None, Typed(ifc_type, value), None)

    def property_set(self, key, name, properties):
        """@param properties  Instances, or (name, type, value) of single values."""
        members = tuple(p if isinstance(p, Ref) else self.single(*p) for p in properties)
        return self.root("IfcPropertySet", f"set {key}", self.owner, name, None, members)

    def give(self, key, definition, elements):
        return self.relate("IfcRelDefinesByProperties", key, None, tuple(elements), definition)

    def describe(self, key, name, elements, properties):
        """A property set and the relation that gives it to the elements."""
        definition = self.property_set(key, name, properties)
        self.give(key, definition, elements)
        return definition

    def quantities(self, key, name, element, values):
        """@param values  (kind, name, value), kind as in IfcQuantityLength."""
        members = tuple(self.add(f"IfcQuantity{kind}", label, None, None, float(value), None)
                        for kind, label, value in values)
        definition = self.root("IfcElementQuantity", f"quantities {key}", self.owner, name, None, None, members)
        return self.give(f"quantities {key}", definition, (element,))

    # --- Classifications ---

    def classify(self, key, label, system, code, name, elements):
        """@param label  The relation's name; empty where the classification's own name is to stand for it."""
        reference = self.add("IfcClassificationReference", None, code, name, system, None, None)
        return self.relate("IfcRelAssociatesClassification", key, label or None, tuple(elements), reference)
