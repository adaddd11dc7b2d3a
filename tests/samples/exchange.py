"""An exchange file cut into its instances, by nothing but quotes, comments and semicolons."""

import re

# A string, a comment, or the end of an instance.
LANDMARK = re.compile(rb"'(?:[^']|'')*'|/\*.*?\*/|;", re.DOTALL)
COMMENT = re.compile(rb"/\*.*?\*/", re.DOTALL)
UPDATABLE = re.compile(
    rb"\s*#\d+\s*=\s*(IFCPROPERTYSINGLEVALUE|IFCCLASSIFICATIONREFERENCE|\w+\s*\(\s*'[0-3][\w$]{21}')", re.IGNORECASE)
INSTANCE = re.compile(rb"\s*#0*(\d+)\s*=")


def statements(content):
    """Everything up to and with each semicolon, then what follows the last."""
    begin = 0
    for landmark in LANDMARK.finditer(content):
        if landmark[0] == b";":
            yield content[begin:landmark.end()]
            begin = landmark.end()
    yield content[begin:]


def split(content):
    """(instances by id, the file's other statements). Comments and blanks stay with the statement that follows."""
    instances, others = {}, []
    for statement in statements(content):
        match = INSTANCE.match(COMMENT.sub(b" ", statement))
        if match:
            instances[int(match[1])] = statement
        else:
            others.append(statement)
    return instances, others


class Difference:
    """What updates did to a file: ids of instances changed, added and lost; whether the rest is as it was."""

    def __init__(self, before, after):
        old, old_others = split(before)
        new, new_others = split(after)
        self.changed = {number for number in old if number in new and old[number] != new[number]}
        # Updates touch instances with a GlobalId, properties and references: never geometry, units or materials.
        self.beyond_updates = [old[n] for n in self.changed if not UPDATABLE.match(COMMENT.sub(b" ", old[n]))]
        self.added = set(new) - set(old)
        self.lost = set(old) - set(new)
        # Blanks between the last instance and the end of the section belong to the instance that is added there.
        self.frame_kept = [o.strip() for o in old_others] == [n.strip() for n in new_others]
        self.order_kept = [n for n in new if n in old] == list(old)
        self.highest_before = max(old)
