<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>Host</name>
    <message>
        <source>an update file takes no item away but a classification</source>
        <translation>eine Aktualisierungsdatei nimmt nichts weg außer einer Klassifikation</translation>
    </message>
    <message>
        <source>the element has several items of that name in one set, of which an update writes the first</source>
        <translation>das Element hat mehrere Angaben dieses Namens in einem Satz; eine Aktualisierung schreibt nur die erste</translation>
    </message>
    <message>
        <source>a list, range, table or reference is no text that an update could ask for</source>
        <translation>eine Liste, ein Bereich, eine Tabelle oder ein Verweis ist kein Text, den eine Aktualisierung verlangen könnte</translation>
    </message>
    <message>
        <source>an update makes new properties as single values only</source>
        <translation>eine Aktualisierung legt neue Eigenschaften nur als Einzelwerte an</translation>
    </message>
    <message>
        <source>the element&apos;s GUID is null, which names no element</source>
        <translation>die GUID des Elements ist leer und bezeichnet kein Element</translation>
    </message>
    <message>
        <source>the element has no Name, so the review list would refuse the line</source>
        <translation>das Element hat keinen Namen (Name), daher würde die Prüfliste die Zeile ablehnen</translation>
    </message>
    <message>
        <source>the value holds a TAB, a line end or a zero, which a line cannot hold</source>
        <translation>der Wert enthält einen Tabulator, ein Zeilenende oder ein Nullzeichen, die in einer Zeile nicht stehen können</translation>
    </message>
    <message>
        <source>the item&apos;s name holds a TAB, a line end or a zero, which a line cannot hold</source>
        <translation>der Name der Angabe enthält einen Tabulator, ein Zeilenende oder ein Nullzeichen, die in einer Zeile nicht stehen können</translation>
    </message>
    <message>
        <source>the line would be longer than 2047 bytes and be cut</source>
        <translation>die Zeile wäre länger als 2047 Bytes und würde abgeschnitten</translation>
    </message>
    <message>
        <source>the item&apos;s name alone leads to another item, or to none</source>
        <translation>der Name der Angabe allein führt zu einer anderen Angabe oder zu keiner</translation>
    </message>
    <message>
        <source>the review list takes the old and the new value for the same</source>
        <translation>die Prüfliste hält den alten und den neuen Wert für gleich</translation>
    </message>
    <message>
        <source>another new property of that name would be written instead</source>
        <translation>stattdessen würde eine andere neue Eigenschaft dieses Namens geschrieben</translation>
    </message>
    <message>
        <source>the import would store &quot;{}&quot; there, by the type of the item</source>
        <translation>der Import würde dort „{}“ speichern, nach dem Typ der Angabe</translation>
    </message>
    <message>
        <source>{} and {} more</source>
        <translation>{} und {} weitere</translation>
    </message>
    <message>
        <source>an update changes no class</source>
        <translation>eine Aktualisierung ändert keine Klasse</translation>
    </message>
    <message>
        <source>an update moves nothing</source>
        <translation>eine Aktualisierung verschiebt nichts</translation>
    </message>
    <message>
        <source>an update changes no geometry</source>
        <translation>eine Aktualisierung ändert keine Geometrie</translation>
    </message>
    <message>
        <source>an update moves nothing to another storey</source>
        <translation>eine Aktualisierung verschiebt nichts in ein anderes Geschoss</translation>
    </message>
    <message>
        <source>an update gives no other type</source>
        <translation>eine Aktualisierung weist keinen anderen Typ zu</translation>
    </message>
    <message>
        <source>an update gives no other material</source>
        <translation>eine Aktualisierung weist kein anderes Material zu</translation>
    </message>
    <message>
        <source>the table of elements shows</source>
        <translation>die Elementtabelle zeigt</translation>
    </message>
    <message>
        <source>The model was changed, or a step taken back, after this review</source>
        <translation>Nach dieser Prüfung wurde das Modell geändert oder ein Schritt zurückgenommen</translation>
    </message>
    <message>
        <source>cannot keep a copy of the updates in {}: {}; make room there, or set TMPDIR</source>
        <translation>in {} kann keine Kopie der Aktualisierungen abgelegt werden: {}; schaffen Sie dort Platz, oder setzen Sie TMPDIR</translation>
    </message>
    <message>
        <source>the file says it was &apos;{}&apos;</source>
        <translation>laut Datei war es „{}“</translation>
    </message>
    <message>
        <source>stored as asked</source>
        <translation>wie verlangt gespeichert</translation>
    </message>
    <message>
        <source>asked &apos;{}&apos;, stored &apos;{}&apos;</source>
        <translation>verlangt „{}“, gespeichert „{}“</translation>
    </message>
    <message>
        <source>asked &apos;{}&apos;, would end in an error</source>
        <translation>verlangt „{}“, würde mit einem Fehler enden</translation>
    </message>
    <message>
        <source>Changes to {}</source>
        <translation>Änderungen an {}</translation>
    </message>
    <message>
        <source>Proposed changes to {}</source>
        <translation>Vorgeschlagene Änderungen an {}</translation>
    </message>
    <message>
        <source>Model</source>
        <translation>Modell</translation>
    </message>
    <message>
        <source>Updates</source>
        <translation>Aktualisierungen</translation>
    </message>
    <message>
        <source>Saved as</source>
        <translation>Gespeichert als</translation>
    </message>
    <message>
        <source>not saved: this is what an import would do</source>
        <translation>nicht gespeichert: dies ist, was ein Import tun würde</translation>
    </message>
    <message>
        <source>Refused: {}</source>
        <translation>Abgelehnt: {}</translation>
    </message>
    <message>
        <source>the element has nothing of that name</source>
        <translation>das Element hat nichts mit diesem Namen</translation>
    </message>
    <message>
        <source>Changed</source>
        <translation>Geändert</translation>
    </message>
    <message>
        <source>Would be changed</source>
        <translation>Würde geändert</translation>
    </message>
    <message>
        <source>Stored otherwise: “{}”</source>
        <translation>Anders gespeichert: „{}“</translation>
    </message>
    <message>
        <source>Stored otherwise: “{}”, since {}</source>
        <translation>Anders gespeichert: „{}“, denn {}</translation>
    </message>
    <message>
        <source>Not applied: the element has no name, so it is not recognised</source>
        <translation>Nicht übernommen: das Element hat keinen Namen und wird daher nicht erkannt</translation>
    </message>
    <message>
        <source>Not applied: not ticked</source>
        <translation>Nicht übernommen: nicht angekreuzt</translation>
    </message>
    <message>
        <source>{}; the updates say that it was “{}”</source>
        <translation>{}; laut den Aktualisierungen war es „{}“</translation>
    </message>
    <message>
        <source>updates in the list</source>
        <translation>Aktualisierungen in der Liste</translation>
    </message>
    <message>
        <source>update in the list</source>
        <translation>Aktualisierung in der Liste</translation>
    </message>
    <message>
        <source>elements concerned</source>
        <translation>betroffene Elemente</translation>
    </message>
    <message>
        <source>element concerned</source>
        <translation>betroffenes Element</translation>
    </message>
    <message>
        <source>changed as asked</source>
        <translation>wie verlangt geändert</translation>
    </message>
    <message>
        <source>would be changed as asked</source>
        <translation>würden wie verlangt geändert</translation>
    </message>
    <message>
        <source>to be looked at</source>
        <translation>zu beachten</translation>
    </message>
    <message>
        <source>refused</source>
        <translation>abgelehnt</translation>
    </message>
    <message>
        <source>not ticked</source>
        <translation>nicht angekreuzt</translation>
    </message>
    <message>
        <source>the same already</source>
        <translation>schon gleich</translation>
    </message>
    <message>
        <source>lines without a row</source>
        <translation>Zeilen der Datei ohne Listenzeile</translation>
    </message>
    <message>
        <source>line without a row</source>
        <translation>Zeile der Datei ohne Listenzeile</translation>
    </message>
    <message>
        <source>Line {}, {}: {}</source>
        <translation>Zeile {}, {}: {}</translation>
    </message>
    <message>
        <source>Nothing on the element has the name in {}: to create a property, write a set behind it, as in {}[Custom] for Pset_Custom</source>
        <translation>Am Element heißt nichts so wie in {}: um eine Eigenschaft anzulegen, schreiben Sie einen Satz dahinter, wie in {}[Custom] für Pset_Custom</translation>
    </message>
    <message>
        <source>{}; check its name and that you may read it</source>
        <translation>{}; prüfen Sie den Namen und das Leserecht</translation>
    </message>
    <message>
        <source>cannot read the update file {}: {}</source>
        <translation>die Aktualisierungsdatei {} kann nicht gelesen werden: {}</translation>
    </message>
    <message>
        <source>it is a folder; name a file in it</source>
        <translation>das ist ein Ordner; nennen Sie eine Datei darin</translation>
    </message>
    <message>
        <source>more than {} MiB came out of it; save it as a file first</source>
        <translation>es kamen mehr als {} MiB heraus; speichern Sie sie zuerst in eine Datei</translation>
    </message>
    <message>
        <source>it is larger than {} MiB, which no table is</source>
        <translation>sie ist größer als {} MiB; so groß ist keine Tabelle</translation>
    </message>
    <message>
        <source>; {} was withdrawn, so export the model again as IFC4 or IFC4X3</source>
        <translation>; {} wurde zurückgezogen, exportieren Sie das Modell daher noch einmal als IFC4 oder IFC4X3</translation>
    </message>
    <message>
        <source>the file names no schema in FILE_SCHEMA; IFC2X3, IFC4 and IFC4X3 can be read</source>
        <translation>die Datei nennt kein Schema in FILE_SCHEMA; gelesen werden IFC2X3, IFC4 und IFC4X3</translation>
    </message>
    <message>
        <source>the file is of schema {}; IFC2X3, IFC4 and IFC4X3 can be read</source>
        <translation>die Datei hat das Schema {}; gelesen werden IFC2X3, IFC4 und IFC4X3</translation>
    </message>
    <message>
        <source>{} and {} more classes</source>
        <translation>{} und {} weitere Klassen</translation>
    </message>
    <message>
        <source>the file is of {0}, a release candidate of {1}; it is read as {1}, so that classes which the final schema has not are not understood</source>
        <translation>die Datei hat das Schema {0}, einen Vorläufer von {1}; sie wird als {1} gelesen, daher bleiben Klassen unverstanden, die das endgültige Schema nicht hat</translation>
    </message>
    <message>
        <source>line {}: {}</source>
        <translation>Zeile {}: {}</translation>
    </message>
    <message>
        <source>{} instance has the GlobalId of an earlier one; of each GlobalId only the first instance is read and changed</source>
        <translation>{} Instanz hat die GlobalId einer früheren; von jeder GlobalId wird nur die erste Instanz gelesen und geändert</translation>
    </message>
    <message>
        <source>{} instances have the GlobalId of an earlier one; of each GlobalId only the first instance is read and changed</source>
        <translation>{} Instanzen haben die GlobalId einer früheren; von jeder GlobalId wird nur die erste Instanz gelesen und geändert</translation>
    </message>
    <message>
        <source>{} instance has no valid GlobalId (22 characters of 0-9 A-Z a-z _ $, the first at most 3) and cannot be addressed</source>
        <translation>{} Instanz hat keine gültige GlobalId (22 Zeichen aus 0-9 A-Z a-z _ $, das erste höchstens 3) und kann nicht angesprochen werden</translation>
    </message>
    <message>
        <source>{} instances have no valid GlobalId (22 characters of 0-9 A-Z a-z _ $, the first at most 3) and cannot be addressed</source>
        <translation>{} Instanzen haben keine gültige GlobalId (22 Zeichen aus 0-9 A-Z a-z _ $, das erste höchstens 3) und können nicht angesprochen werden</translation>
    </message>
    <message>
        <source>{} instance is of classes that {} does not have, and kept in the file without being read: {}</source>
        <translation>{} Instanz gehört zu Klassen, die {} nicht hat; sie bleibt ungelesen in der Datei: {}</translation>
    </message>
    <message>
        <source>{} instances are of classes that {} does not have, and kept in the file without being read: {}</source>
        <translation>{} Instanzen gehören zu Klassen, die {} nicht hat; sie bleiben ungelesen in der Datei: {}</translation>
    </message>
    <message>
        <source>the model can only be changed inside an undoable command</source>
        <translation>das Modell kann nur innerhalb eines Befehls geändert werden, der sich rückgängig machen lässt</translation>
    </message>
    <message>
        <source>its GlobalId stands in the file more than once; only the first instance, #{}, is changed</source>
        <translation>seine GlobalId steht mehrmals in der Datei; nur die erste Instanz, #{}, wird geändert</translation>
    </message>
    <message>
        <source>{}: there is not enough memory to open it; close other programs and try again</source>
        <translation>{}: der Arbeitsspeicher reicht nicht zum Öffnen; schließen Sie andere Programme und versuchen Sie es noch einmal</translation>
    </message>
    <message>
        <source>there is not enough memory to open the model</source>
        <translation>der Arbeitsspeicher reicht nicht, um das Modell zu öffnen</translation>
    </message>
    <message>
        <source>it is derived from other attributes (the file holds *)</source>
        <translation>es ist aus anderen Attributen abgeleitet (in der Datei steht *)</translation>
    </message>
    <message>
        <source>the file holds a text that cannot be decoded, {}; fix it in the program that wrote it</source>
        <translation>die Datei enthält einen Text, der nicht entschlüsselt werden kann, {}; berichtigen Sie ihn in dem Programm, das sie geschrieben hat</translation>
    </message>
    <message>
        <source>the file holds no value of its type, {}</source>
        <translation>die Datei enthält keinen Wert seines Typs, {}</translation>
    </message>
    <message>
        <source>it must have a value in this schema</source>
        <translation>in diesem Schema muss es einen Wert haben</translation>
    </message>
    <message>
        <source>the instance is not well formed</source>
        <translation>die Instanz ist nicht wohlgeformt</translation>
    </message>
    <message>
        <source>{} has no such attribute that is a single value</source>
        <translation>{} hat kein solches Attribut mit einem Einzelwert</translation>
    </message>
    <message>
        <source>the GlobalId identifies the element and stays</source>
        <translation>die GlobalId bezeichnet das Element und bleibt</translation>
    </message>
    <message>
        <source>the file gives this instance fewer attributes than its schema, and not this one</source>
        <translation>die Datei gibt dieser Instanz weniger Attribute als ihr Schema, und dieses nicht</translation>
    </message>
    <message>
        <source>the classification system has no label</source>
        <translation>das Klassifikationssystem hat keine Bezeichnung</translation>
    </message>
    <message>
        <source>the element has it from its type, which gives it to others, too</source>
        <translation>das Element hat sie von seinem Typ, der sie auch anderen gibt</translation>
    </message>
    <message>
        <source>the element has {} classifications {}; the first one was changed</source>
        <translation>das Element hat {} Klassifikationen {}; die erste wurde geändert</translation>
    </message>
    <message>
        <source>the element has {} classifications {}; the first one was removed</source>
        <translation>das Element hat {} Klassifikationen {}; die erste wurde entfernt</translation>
    </message>
    <message>
        <source>relation {} is referred to, so it has to stay</source>
        <translation>auf die Beziehung {} wird verwiesen, daher muss sie bleiben</translation>
    </message>
    <message>
        <source>the file gives {} too few attributes</source>
        <translation>die Datei gibt {} zu wenige Attribute</translation>
    </message>
    <message>
        <source>{} derives a text from others (the file holds *)</source>
        <translation>{} leitet einen Text aus anderen ab (in der Datei steht *)</translation>
    </message>
    <message>
        <source>instance {} is not well formed</source>
        <translation>die Instanz {} ist nicht wohlgeformt</translation>
    </message>
    <message>
        <source>the file has several instances {}, so none of them can be changed</source>
        <translation>die Datei hat mehrere Instanzen {}, daher kann keine davon geändert werden</translation>
    </message>
    <message>
        <source>what relation {} names is no well-formed list</source>
        <translation>was die Beziehung {} nennt, ist keine wohlgeformte Liste</translation>
    </message>
    <message>
        <source>the file holds no well-formed value, {}</source>
        <translation>die Datei enthält keinen wohlgeformten Wert, {}</translation>
    </message>
    <message>
        <source>the file gives its value no type that this schema knows</source>
        <translation>die Datei gibt dem Wert keinen Typ, den dieses Schema kennt</translation>
    </message>
    <message>
        <source>the file does not say which items the property offers</source>
        <translation>die Datei sagt nicht, welche Werte die Eigenschaft zur Wahl stellt</translation>
    </message>
    <message>
        <source>{} is none of the property&apos;s items ({})</source>
        <translation>{} ist keiner der Werte, die die Eigenschaft zur Wahl stellt ({})</translation>
    </message>
    <message>
        <source>&quot;{}&quot; is no type of a value in this schema</source>
        <translation>„{}“ ist in diesem Schema kein Typ eines Werts</translation>
    </message>
    <message>
        <source>the property set has no name</source>
        <translation>der Eigenschaftssatz hat keinen Namen</translation>
    </message>
    <message>
        <source>the property has no name</source>
        <translation>die Eigenschaft hat keinen Namen</translation>
    </message>
    <message>
        <source>the property holds no single value</source>
        <translation>die Eigenschaft enthält keinen Einzelwert</translation>
    </message>
    <message>
        <source>the file gives the property no place for a value</source>
        <translation>die Datei gibt der Eigenschaft keinen Platz für einen Wert</translation>
    </message>
    <message>
        <source>the properties of set {} are no well-formed list</source>
        <translation>die Eigenschaften des Satzes {} sind keine wohlgeformte Liste</translation>
    </message>
    <message>
        <source>the properties of relation {} are no well-formed list</source>
        <translation>die Eigenschaften der Beziehung {} sind keine wohlgeformte Liste</translation>
    </message>
    <message>
        <source>the set has a complex property of that name, {}</source>
        <translation>der Satz hat eine zusammengesetzte Eigenschaft dieses Namens, {}</translation>
    </message>
    <message>
        <source>the element has {} property sets {}; the first one that fits was changed</source>
        <translation>das Element hat {} Eigenschaftssätze {}; der erste passende wurde geändert</translation>
    </message>
    <message>
        <source>Wall</source>
        <translation>Wand</translation>
    </message>
    <message>
        <source>Column</source>
        <translation>Stütze</translation>
    </message>
    <message>
        <source>Beam</source>
        <translation>Träger</translation>
    </message>
    <message>
        <source>Window</source>
        <translation>Fenster</translation>
    </message>
    <message>
        <source>Door</source>
        <translation>Tür</translation>
    </message>
    <message>
        <source>Object</source>
        <translation>Objekt</translation>
    </message>
    <message>
        <source>Lamp</source>
        <translation>Leuchte</translation>
    </message>
    <message>
        <source>Slab</source>
        <translation>Decke</translation>
    </message>
    <message>
        <source>Roof</source>
        <translation>Dach</translation>
    </message>
    <message>
        <source>Mesh</source>
        <translation>Gelände</translation>
    </message>
    <message>
        <source>Zone</source>
        <translation>Raum</translation>
    </message>
    <message>
        <source>Curtain Wall</source>
        <translation>Fassade</translation>
    </message>
    <message>
        <source>Site</source>
        <translation>Grundstück</translation>
    </message>
    <message>
        <source>Building</source>
        <translation>Gebäude</translation>
    </message>
    <message>
        <source>Storey</source>
        <translation>Geschoss</translation>
    </message>
    <message>
        <source>Product</source>
        <translation>Produkt</translation>
    </message>
    <message>
        <source>Opening</source>
        <translation>Öffnung</translation>
    </message>
    <message>
        <source>{} is no code of a logical (0 false, 1 unknown, 2 true)</source>
        <translation>{} ist kein Code eines logischen Werts (0 falsch, 1 unbekannt, 2 wahr)</translation>
    </message>
    <message>
        <source>a value of another kind than {}</source>
        <translation>ein Wert von anderer Art als {}</translation>
    </message>
    <message>
        <source>a value of another kind than the one there</source>
        <translation>ein Wert von anderer Art als der vorhandene</translation>
    </message>
    <message>
        <source>a value that is no number, truth value or text</source>
        <translation>ein Wert, der weder Zahl noch Wahrheitswert noch Text ist</translation>
    </message>
    <message>
        <source>&quot;{}&quot; is no type of a property&apos;s value in this schema</source>
        <translation>„{}“ ist in diesem Schema kein Typ eines Eigenschaftswerts</translation>
    </message>
    <message>
        <source>the file gives its value a type this schema does not know, {}</source>
        <translation>die Datei gibt dem Wert einen Typ, den dieses Schema nicht kennt, {}</translation>
    </message>
    <message>
        <source>is no number; the decimal sign is a point</source>
        <translation>ist keine Zahl; das Dezimalzeichen ist ein Punkt</translation>
    </message>
    <message>
        <source>is no number</source>
        <translation>ist keine Zahl</translation>
    </message>
    <message>
        <source>is outside the range of real numbers</source>
        <translation>liegt außerhalb des Bereichs der reellen Zahlen</translation>
    </message>
    <message>
        <source>is outside the range of 64-bit integers</source>
        <translation>liegt außerhalb des Bereichs der ganzen Zahlen mit 64 Bit</translation>
    </message>
    <message>
        <source>is no whole number</source>
        <translation>ist keine ganze Zahl</translation>
    </message>
    <message>
        <source>is none of true, false, unknown</source>
        <translation>ist weder true noch false noch unknown</translation>
    </message>
    <message>
        <source>is neither true nor false</source>
        <translation>ist weder true noch false</translation>
    </message>
    <message>
        <source>is no item of {} ({})</source>
        <translation>steht nicht in der Aufzählung {} ({})</translation>
    </message>
    <message>
        <source>cannot be set as a text</source>
        <translation>lässt sich nicht als Text setzen</translation>
    </message>
    <message>
        <source>is not finite</source>
        <translation>ist nicht endlich</translation>
    </message>
    <message>
        <source>is not above {}, as {} asks</source>
        <translation>ist nicht größer als {}, wie es {} verlangt</translation>
    </message>
    <message>
        <source>is not at least {}, as {} asks</source>
        <translation>ist nicht mindestens {}, wie es {} verlangt</translation>
    </message>
    <message>
        <source>is not below {}, as {} asks</source>
        <translation>ist nicht kleiner als {}, wie es {} verlangt</translation>
    </message>
    <message>
        <source>is not at most {}, as {} asks</source>
        <translation>ist nicht höchstens {}, wie es {} verlangt</translation>
    </message>
    <message>
        <source>holds half of a character (a lone surrogate)</source>
        <translation>enthält ein halbes Zeichen (ein einzelnes Surrogat)</translation>
    </message>
    <message>
        <source>is {} characters long; {} holds at most {}</source>
        <translation>ist {} Zeichen lang; {} fasst höchstens {}</translation>
    </message>
    <message>
        <source>is {} characters long; {} holds {}</source>
        <translation>ist {} Zeichen lang; {} fasst genau {}</translation>
    </message>
    <message>
        <source>is none of the texts of {} ({})</source>
        <translation>ist keiner der Texte von {} ({})</translation>
    </message>
    <message>
        <source>the instance #{} is not edited: {}</source>
        <translation>die Instanz #{} wird nicht geändert: {}</translation>
    </message>
    <message>
        <source>there is no such instance</source>
        <translation>diese Instanz gibt es nicht</translation>
    </message>
    <message>
        <source>the file has no id left for a new instance</source>
        <translation>in der Datei ist keine Nummer mehr frei für eine neue Instanz</translation>
    </message>
    <message>
        <source>a command is open already</source>
        <translation>ein Befehl ist schon im Gang</translation>
    </message>
    <message>
        <source>a file is edited only inside a command</source>
        <translation>eine Datei wird nur innerhalb eines Befehls geändert</translation>
    </message>
    <message>
        <source>it is no longer there</source>
        <translation>sie ist nicht mehr da</translation>
    </message>
    <message>
        <source>the file has several instances of this id</source>
        <translation>die Datei hat mehrere Instanzen dieser Nummer</translation>
    </message>
    <message>
        <source>it is a complex instance</source>
        <translation>sie ist eine zusammengesetzte Instanz</translation>
    </message>
    <message>
        <source>the list is malformed in the file</source>
        <translation>die Liste in der Datei ist fehlerhaft</translation>
    </message>
    <message>
        <source>its list does not name #{}</source>
        <translation>ihre Liste nennt #{} nicht</translation>
    </message>
    <message>
        <source>the new instance is malformed</source>
        <translation>die neue Instanz ist fehlerhaft</translation>
    </message>
    <message>
        <source>the file has no section DATA</source>
        <translation>die Datei hat keinen Abschnitt DATA</translation>
    </message>
    <message>
        <source>{}; check the name and the rights</source>
        <translation>{}; prüfen Sie den Namen und die Rechte</translation>
    </message>
    <message>
        <source>there is not enough memory to open it; close other programs and try again</source>
        <translation>der Arbeitsspeicher reicht nicht zum Öffnen; schließen Sie andere Programme und versuchen Sie es noch einmal</translation>
    </message>
    <message>
        <source>the file was written, but then there was not enough memory to go on working on it; close other programs and save again</source>
        <translation>die Datei wurde geschrieben, danach reichte aber der Arbeitsspeicher nicht, um mit ihr weiterzuarbeiten; schließen Sie andere Programme und speichern Sie noch einmal</translation>
    </message>
    <message>
        <source>there is not enough memory to save it; the old file is untouched</source>
        <translation>der Arbeitsspeicher reicht nicht zum Speichern; die alte Datei ist unverändert</translation>
    </message>
    <message>
        <source>packing the model failed: {}</source>
        <translation>das Modell konnte nicht gepackt werden: {}</translation>
    </message>
    <message>
        <source>the archive holds no .ifc file; choose another one, or export the model as .ifc</source>
        <translation>das Archiv enthält keine .ifc-Datei; wählen Sie ein anderes, oder exportieren Sie das Modell als .ifc</translation>
    </message>
    <message>
        <source>the archive holds several .ifc files; unpack it and open one of them</source>
        <translation>das Archiv enthält mehrere .ifc-Dateien; entpacken Sie es und öffnen Sie eine davon</translation>
    </message>
    <message>
        <source>the archive is encrypted; unpack it first</source>
        <translation>das Archiv ist verschlüsselt; entpacken Sie es zuerst</translation>
    </message>
    <message>
        <source>the archive claims to unpack to {} bytes from {}, which no model does; do not trust it</source>
        <translation>das Archiv gibt vor, aus {1} Bytes würden {0}; das tut kein Modell, trauen Sie ihm nicht</translation>
    </message>
    <message>
        <source>the model cannot be unpacked: {}; unpack it with another program</source>
        <translation>das Modell kann nicht entpackt werden: {}; entpacken Sie es mit einem anderen Programm</translation>
    </message>
    <message>
        <source>the archive is damaged; fetch it again</source>
        <translation>das Archiv ist beschädigt; holen Sie es noch einmal</translation>
    </message>
    <message>
        <source>opening was cancelled</source>
        <translation>das Öffnen wurde abgebrochen</translation>
    </message>
    <message>
        <source>out of memory</source>
        <translation>der Arbeitsspeicher reicht nicht</translation>
    </message>
    <message>
        <source>the archive holds thousands of entries whose names were chosen to keep programs busy; do not trust it</source>
        <translation>das Archiv enthält Tausende Einträge, deren Namen so gewählt sind, dass sie Programme lahmlegen; trauen Sie ihm nicht</translation>
    </message>
    <message>
        <source>the archive is damaged: {}; fetch it again</source>
        <translation>das Archiv ist beschädigt: {}; holen Sie es noch einmal</translation>
    </message>
    <message>
        <source>saving was cancelled</source>
        <translation>das Speichern wurde abgebrochen</translation>
    </message>
    <message>
        <source>it cannot be kept as it was: {}</source>
        <translation>die bisherige Datei kann nicht aufgehoben werden: {}</translation>
    </message>
    <message>
        <source>&apos;{}&apos; is no ending of a file&apos;s name; write one such as .bak</source>
        <translation>„{}“ ist keine Endung eines Dateinamens; schreiben Sie etwa .bak</translation>
    </message>
    <message>
        <source>{}: {}; choose another suffix or place</source>
        <translation>{}: {}; wählen Sie eine andere Endung oder einen anderen Ort</translation>
    </message>
    <message>
        <source>this program itself</source>
        <translation>diesem Programm selbst</translation>
    </message>
    <message>
        <source>process {}</source>
        <translation>Prozess {}</translation>
    </message>
    <message>
        <source>another program</source>
        <translation>einem anderen Programm</translation>
    </message>
    <message>
        <source>it is a folder or a device, not a file; choose an .ifc file</source>
        <translation>das ist ein Ordner oder ein Gerät und keine Datei; wählen Sie eine .ifc-Datei</translation>
    </message>
    <message>
        <source>another program is writing it just now; open it again when that is done</source>
        <translation>ein anderes Programm schreibt sie gerade; öffnen Sie sie noch einmal, wenn es damit fertig ist</translation>
    </message>
    <message>
        <source>free some space, or save in another place</source>
        <translation>schaffen Sie Platz, oder speichern Sie an einem anderen Ort</translation>
    </message>
    <message>
        <source>the folder or the file may not be written; save in another place</source>
        <translation>der Ordner oder die Datei darf nicht beschrieben werden; speichern Sie an einem anderen Ort</translation>
    </message>
    <message>
        <source>save in another place</source>
        <translation>speichern Sie an einem anderen Ort</translation>
    </message>
    <message>
        <source>choose a shorter name</source>
        <translation>wählen Sie einen kürzeren Namen</translation>
    </message>
    <message>
        <source>save in another place, or try again</source>
        <translation>speichern Sie an einem anderen Ort, oder versuchen Sie es noch einmal</translation>
    </message>
    <message>
        <source>; the old file is untouched</source>
        <translation>; die alte Datei ist unverändert</translation>
    </message>
    <message>
        <source>saving was cancelled; the old file is untouched</source>
        <translation>das Speichern wurde abgebrochen; die alte Datei ist unverändert</translation>
    </message>
    <message>
        <source>there is no folder {}; make it first, or save in another place</source>
        <translation>es gibt keinen Ordner {}; legen Sie ihn zuerst an, oder speichern Sie an einem anderen Ort</translation>
    </message>
    <message>
        <source>{}: another program has changed the file since it was opened; save under another name, or overwrite it on purpose</source>
        <translation>{}: ein anderes Programm hat die Datei geändert, seit sie geöffnet wurde; speichern Sie unter anderem Namen, oder überschreiben Sie sie mit Absicht</translation>
    </message>
    <message>
        <source>the file is open in {}; close it there, or save under another name</source>
        <translation>die Datei ist in {} geöffnet; schließen Sie sie dort, oder speichern Sie unter anderem Namen</translation>
    </message>
    <message>
        <source>it is a folder or a device, not a file; choose another name</source>
        <translation>das ist ein Ordner oder ein Gerät und keine Datei; wählen Sie einen anderen Namen</translation>
    </message>
    <message>
        <source>the file is write-protected; save under another name</source>
        <translation>die Datei ist schreibgeschützt; speichern Sie unter anderem Namen</translation>
    </message>
    <message>
        <source>the file has {} names (hard links); saving changes it under this name alone, the others keep the old version</source>
        <translation>die Datei hat {} Namen (harte Links); das Speichern ändert sie nur unter diesem Namen, die anderen behalten die alte Fassung</translation>
    </message>
    <message>
        <source>the file belongs to {}; saved, it belongs to {}</source>
        <translation>die Datei gehört {}; gespeichert gehört sie {}</translation>
    </message>
    <message>
        <source>the file is of the group {}, which is not one of yours; saved, it is of a group of yours, with the rights of all others</source>
        <translation>die Datei gehört der Gruppe {}, in der Sie nicht sind; gespeichert gehört sie einer Ihrer Gruppen, mit den Rechten aller anderen</translation>
    </message>
    <message>
        <source>the file was written, but a power failure might undo that: {}; save again</source>
        <translation>die Datei wurde geschrieben, ein Stromausfall könnte das aber rückgängig machen: {}; speichern Sie noch einmal</translation>
    </message>
    <message>
        <source>the value is not one of this instance</source>
        <translation>der Wert gehört nicht zu dieser Instanz</translation>
    </message>
    <message>
        <source>the value is malformed in the file</source>
        <translation>der Wert in der Datei ist fehlerhaft</translation>
    </message>
    <message>
        <source>the value is derived from others</source>
        <translation>der Wert ist aus anderen abgeleitet</translation>
    </message>
    <message>
        <source>the new value is malformed</source>
        <translation>der neue Wert ist fehlerhaft</translation>
    </message>
    <message>
        <source>it is UTF-16 text, and an IFC file is plain ASCII; convert it, or export the model again</source>
        <translation>das ist UTF-16-Text, eine IFC-Datei ist aber reines ASCII; wandeln Sie sie um, oder exportieren Sie das Modell noch einmal</translation>
    </message>
    <message>
        <source>it is XML, not an IFC file in clear text; export the model as .ifc</source>
        <translation>das ist XML und keine IFC-Datei in Klartext; exportieren Sie das Modell als .ifc</translation>
    </message>
    <message>
        <source>it is XML or HTML, not an IFC file in clear text; export the model as .ifc</source>
        <translation>das ist XML oder HTML und keine IFC-Datei in Klartext; exportieren Sie das Modell als .ifc</translation>
    </message>
    <message>
        <source>it is JSON, not an IFC file in clear text; export the model as .ifc</source>
        <translation>das ist JSON und keine IFC-Datei in Klartext; exportieren Sie das Modell als .ifc</translation>
    </message>
    <message>
        <source>it is an HDF5 file, not an IFC file in clear text; export the model as .ifc</source>
        <translation>das ist eine HDF5-Datei und keine IFC-Datei in Klartext; exportieren Sie das Modell als .ifc</translation>
    </message>
    <message>
        <source>it is packed with gzip; unpack it first</source>
        <translation>die Datei ist mit gzip gepackt; entpacken Sie sie zuerst</translation>
    </message>
    <message>
        <source>it is packed with 7-Zip; unpack it first</source>
        <translation>die Datei ist mit 7-Zip gepackt; entpacken Sie sie zuerst</translation>
    </message>
    <message>
        <source>it is packed with RAR; unpack it first</source>
        <translation>die Datei ist mit RAR gepackt; entpacken Sie sie zuerst</translation>
    </message>
    <message>
        <source>the file is empty; export the model again</source>
        <translation>die Datei ist leer; exportieren Sie das Modell noch einmal</translation>
    </message>
    <message>
        <source>the file holds nothing but zero bytes; copying it was probably interrupted, so fetch it again</source>
        <translation>die Datei enthält nur Nullbytes; vermutlich wurde das Kopieren unterbrochen, holen Sie sie noch einmal</translation>
    </message>
    <message>
        <source>it does not begin with ISO-10303-21, so it is no IFC file in clear text; export the model as .ifc</source>
        <translation>die Datei beginnt nicht mit ISO-10303-21 und ist daher keine IFC-Datei in Klartext; exportieren Sie das Modell als .ifc</translation>
    </message>
    <message>
        <source>the id {} is used more than once; its instances are not edited</source>
        <translation>die Nummer {} kommt mehrmals vor; ihre Instanzen werden nicht geändert</translation>
    </message>
    <message>
        <source>FILE_SCHEMA is missing or names no schema</source>
        <translation>FILE_SCHEMA fehlt oder nennt kein Schema</translation>
    </message>
    <message>
        <source>the file is signed; saved with changes, its signature is no longer valid</source>
        <translation>die Datei ist signiert; mit Änderungen gespeichert, ist ihre Signatur nicht mehr gültig</translation>
    </message>
    <message>
        <source>and {} more remarks like these</source>
        <translation>und {} weitere Bemerkungen dieser Art</translation>
    </message>
    <message>
        <source>the semicolon behind ISO-10303-21 is missing</source>
        <translation>das Semikolon hinter ISO-10303-21 fehlt</translation>
    </message>
    <message>
        <source>{}; nothing behind it is used</source>
        <translation>{}; was dahinter steht, wird nicht verwendet</translation>
    </message>
    <message>
        <source>END-ISO-10303-21 is missing</source>
        <translation>END-ISO-10303-21 fehlt</translation>
    </message>
    <message>
        <source>unexpected text outside the sections</source>
        <translation>unerwarteter Text außerhalb der Abschnitte</translation>
    </message>
    <message>
        <source>the semicolon behind END-ISO-10303-21 is missing</source>
        <translation>das Semikolon hinter END-ISO-10303-21 fehlt</translation>
    </message>
    <message>
        <source>the semicolon behind HEADER is missing</source>
        <translation>das Semikolon hinter HEADER fehlt</translation>
    </message>
    <message>
        <source>the semicolon behind ENDSEC is missing</source>
        <translation>das Semikolon hinter ENDSEC fehlt</translation>
    </message>
    <message>
        <source>ENDSEC of the header is missing</source>
        <translation>ENDSEC des Kopfs fehlt</translation>
    </message>
    <message>
        <source>a malformed entry of the header</source>
        <translation>ein fehlerhafter Eintrag im Kopf</translation>
    </message>
    <message>
        <source>ENDSEC of the section {} is missing</source>
        <translation>ENDSEC des Abschnitts {} fehlt</translation>
    </message>
    <message>
        <source>ENDSEC of the section SIGNATURE is missing</source>
        <translation>ENDSEC des Abschnitts SIGNATURE fehlt</translation>
    </message>
    <message>
        <source>{} zero bytes behind the end of the file; they are kept as they are</source>
        <translation>{} Nullbytes hinter dem Ende der Datei; sie bleiben, wie sie sind</translation>
    </message>
    <message>
        <source>{} bytes behind the end of the file; they are kept as they are</source>
        <translation>{} Bytes hinter dem Ende der Datei; sie bleiben, wie sie sind</translation>
    </message>
    <message>
        <source>the file is not complete: {}; it ends in zero bytes, so writing or copying it was probably interrupted</source>
        <translation>die Datei ist nicht vollständig: {}; sie endet mit Nullbytes, vermutlich wurde das Schreiben oder Kopieren unterbrochen</translation>
    </message>
    <message>
        <source>the file is not complete: {}; writing or copying it was probably interrupted</source>
        <translation>die Datei ist nicht vollständig: {}; vermutlich wurde das Schreiben oder Kopieren unterbrochen</translation>
    </message>
    <message>
        <source>the beginning of the section DATA is malformed</source>
        <translation>der Anfang des Abschnitts DATA ist fehlerhaft</translation>
    </message>
    <message>
        <source>ENDSEC and END-ISO-10303-21 are missing</source>
        <translation>ENDSEC und END-ISO-10303-21 fehlen</translation>
    </message>
    <message>
        <source>unexpected text between the instances</source>
        <translation>unerwarteter Text zwischen den Instanzen</translation>
    </message>
    <message>
        <source>ENDSEC is missing</source>
        <translation>ENDSEC fehlt</translation>
    </message>
    <message>
        <source>an instance is malformed: {}; it is kept as it is and not used</source>
        <translation>eine Instanz ist fehlerhaft: {}; sie bleibt, wie sie ist, und wird nicht verwendet</translation>
    </message>
    <message>
        <source>the instance #{} is malformed: {}; it is kept as it is and not used</source>
        <translation>die Instanz #{} ist fehlerhaft: {}; sie bleibt, wie sie ist, und wird nicht verwendet</translation>
    </message>
    <message>
        <source>the instance #{} is longer than 4 GB; it is kept and not used</source>
        <translation>die Instanz #{} ist länger als 4 GB; sie bleibt und wird nicht verwendet</translation>
    </message>
    <message>
        <source>a comment is not closed</source>
        <translation>ein Kommentar ist nicht geschlossen</translation>
    </message>
    <message>
        <source>a string is not closed, or holds an apostrophe that is not doubled</source>
        <translation>ein Text ist nicht geschlossen oder enthält einen Apostroph, der nicht verdoppelt ist</translation>
    </message>
    <message>
        <source>a parenthesis is not closed</source>
        <translation>eine Klammer ist nicht geschlossen</translation>
    </message>
    <message>
        <source>a string is not closed</source>
        <translation>ein Text ist nicht geschlossen</translation>
    </message>
    <message>
        <source>a value is missing</source>
        <translation>ein Wert fehlt</translation>
    </message>
    <message>
        <source>a parenthesis is missing</source>
        <translation>eine Klammer fehlt</translation>
    </message>
    <message>
        <source>&apos;#&apos; is missing</source>
        <translation>„#“ fehlt</translation>
    </message>
    <message>
        <source>the id is too large</source>
        <translation>die Nummer ist zu groß</translation>
    </message>
    <message>
        <source>the id is missing</source>
        <translation>die Nummer fehlt</translation>
    </message>
    <message>
        <source>0 is no id</source>
        <translation>0 ist keine Nummer</translation>
    </message>
    <message>
        <source>&apos;=&apos; is missing</source>
        <translation>„=“ fehlt</translation>
    </message>
    <message>
        <source>the keyword is missing</source>
        <translation>das Schlüsselwort fehlt</translation>
    </message>
    <message>
        <source>the semicolon is missing</source>
        <translation>das Semikolon fehlt</translation>
    </message>
    <message>
        <source>the element has no such classification</source>
        <translation>das Element hat keine solche Klassifikation</translation>
    </message>
    <message>
        <source>nothing on the element has that name</source>
        <translation>am Element heißt nichts so</translation>
    </message>
    <message>
        <source>Store as asked</source>
        <translation>Wie verlangt speichern</translation>
    </message>
    <message>
        <source>Place (moved)</source>
        <translation>Lage (verschoben)</translation>
    </message>
    <message>
        <source>Shape</source>
        <translation>Form</translation>
    </message>
    <message>
        <source>IFC class</source>
        <translation>IFC-Klasse</translation>
    </message>
    <message>
        <source>Type object</source>
        <translation>Typobjekt</translation>
    </message>
    <message>
        <source>Material</source>
        <translation>Material</translation>
    </message>
    <message>
        <source>changed</source>
        <translation>geändert</translation>
    </message>
    <message>
        <source>new</source>
        <translation>neu</translation>
    </message>
    <message>
        <source>removed</source>
        <translation>entfernt</translation>
    </message>
    <message>
        <source>elements changed</source>
        <translation>geänderte Elemente</translation>
    </message>
    <message>
        <source>element changed</source>
        <translation>geändertes Element</translation>
    </message>
    <message>
        <source>elements added</source>
        <translation>hinzugefügte Elemente</translation>
    </message>
    <message>
        <source>element added</source>
        <translation>hinzugefügtes Element</translation>
    </message>
    <message>
        <source>elements removed</source>
        <translation>entfernte Elemente</translation>
    </message>
    <message>
        <source>element removed</source>
        <translation>entferntes Element</translation>
    </message>
    <message>
        <source>elements the same</source>
        <translation>unveränderte Elemente</translation>
    </message>
    <message>
        <source>element the same</source>
        <translation>unverändertes Element</translation>
    </message>
    <message>
        <source>Made</source>
        <translation>Erstellt</translation>
    </message>
    <message>
        <source>{} by {}</source>
        <translation>{} mit {}</translation>
    </message>
    <message>
        <source>{1}, {2}, {0} element</source>
        <translation>{1}, {2}, {0} Element</translation>
    </message>
    <message>
        <source>{1}, {2}, {0} elements</source>
        <translation>{1}, {2}, {0} Elemente</translation>
    </message>
    <message>
        <source>(no name)</source>
        <translation>(ohne Namen)</translation>
    </message>
    <message>
        <source>On no storey</source>
        <translation>In keinem Geschoss</translation>
    </message>
    <message>
        <source>Item</source>
        <translation>Angabe</translation>
    </message>
    <message>
        <source>Old</source>
        <translation>Alt</translation>
    </message>
    <message>
        <source>New</source>
        <translation>Neu</translation>
    </message>
    <message>
        <source>Remark</source>
        <translation>Bemerkung</translation>
    </message>
    <message>
        <source>en</source>
        <translation>de</translation>
    </message>
    <message>
        <source>Asked and not stored</source>
        <translation>Verlangt und nicht gespeichert</translation>
    </message>
    <message>
        <source>: asked for “{}”. {}</source>
        <translation>: verlangt „{}“. {}</translation>
    </message>
    <message>
        <source>Nothing is different.</source>
        <translation>Es gibt keine Unterschiede.</translation>
    </message>
    <message>
        <source>Storeys</source>
        <translation>Geschosse</translation>
    </message>
    <message>
        <source>Asked for “{}”. {}</source>
        <translation>Verlangt „{}“. {}</translation>
    </message>
    <message>
        <source>Notes</source>
        <translation>Hinweise</translation>
    </message>
    <message>
        <source>Plan</source>
        <translation>Grundriss</translation>
    </message>
    <message>
        <source>{} marked on the plan; each leads to its rows.</source>
        <translation>{} im Grundriss markiert; jede Marke führt zu ihren Zeilen.</translation>
    </message>
    <message>
        <source>{} elements more are not drawn.</source>
        <translation>{} weitere Elemente sind nicht gezeichnet.</translation>
    </message>
    <message>
        <source>added</source>
        <translation>hinzugefügt</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Typ</translation>
    </message>
    <message>
        <source>Class</source>
        <translation>Klasse</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Asked</source>
        <translation>Verlangt</translation>
    </message>
    <message>
        <source>, but {}</source>
        <translation>, aber {}</translation>
    </message>
    <message>
        <source>{} has no class {}{}</source>
        <translation>{} hat keine Klasse {}{}</translation>
    </message>
    <message>
        <source>the expression tries too many ways on some text; write it with fewer * and +</source>
        <translation>der Ausdruck probiert bei manchen Texten zu viele Wege; schreiben Sie ihn mit weniger * und +</translation>
    </message>
    <message>
        <source>a comma or + is missing</source>
        <translation>ein Komma oder + fehlt</translation>
    </message>
    <message>
        <source>a class, an attribute, a property or another facet</source>
        <translation>eine Klasse, ein Attribut, eine Eigenschaft oder ein anderes Merkmal</translation>
    </message>
    <message>
        <source>! stands before a class, a GUID or a comparison</source>
        <translation>! steht vor einer Klasse, einer GUID oder einem Vergleich</translation>
    </message>
    <message>
        <source>the name of a property</source>
        <translation>der Name einer Eigenschaft</translation>
    </message>
    <message>
        <source>behind /a set/ a point and a property belong</source>
        <translation>hinter /einen Satz/ gehören ein Punkt und eine Eigenschaft</translation>
    </message>
    <message>
        <source>a comparison such as =NULL is missing</source>
        <translation>ein Vergleich wie =NULL fehlt</translation>
    </message>
    <message>
        <source>{} is a facet that is not known here</source>
        <translation>das Merkmal {} ist hier nicht bekannt</translation>
    </message>
    <message>
        <source>a comparison is missing: =, !=, *=, !*=, &gt;, &gt;=, &lt; or &lt;=</source>
        <translation>ein Vergleich fehlt: =, !=, *=, !*=, &gt;, &gt;=, &lt; oder &lt;=</translation>
    </message>
    <message>
        <source>! stands before = and *= only</source>
        <translation>! steht nur vor = und *=</translation>
    </message>
    <message>
        <source>a value</source>
        <translation>ein Wert</translation>
    </message>
    <message>
        <source>{} is missing</source>
        <translation>{} fehlt</translation>
    </message>
    <message>
        <source>a quote is open</source>
        <translation>ein Anführungszeichen ist offen</translation>
    </message>
    <message>
        <source>a / is open</source>
        <translation>ein / ist offen</translation>
    </message>
    <message>
        <source>{}, at character {}: {}&lt;&lt;here&gt;&gt;{}</source>
        <translation>{}, bei Zeichen {}: {}&lt;&lt;hier&gt;&gt;{}</translation>
    </message>
    <message>
        <source>it is no regular expression ({})</source>
        <translation>das ist kein regulärer Ausdruck ({})</translation>
    </message>
    <message>
        <source>its interface version is {}, this host&apos;s is {}</source>
        <translation>seine Schnittstelle hat die Version {}, die dieses Programms {}</translation>
    </message>
    <message>
        <source>it is built for version {} of the host interface, this host has version {}</source>
        <translation>es ist für die Version {} der Schnittstelle gemacht, dieses Programm hat die Version {}</translation>
    </message>
    <message>
        <source>its record has no function {}</source>
        <translation>seine Liste von Funktionen enthält {} nicht</translation>
    </message>
    <message>
        <source>its resource file cannot be read</source>
        <translation>seine Ressourcendatei kann nicht gelesen werden</translation>
    </message>
    <message>
        <source>it refused the host&apos;s functions: {}</source>
        <translation>es hat die Funktionen des Programms abgelehnt: {}</translation>
    </message>
    <message>
        <source>it does not want to run in this host</source>
        <translation>es will in diesem Programm nicht laufen</translation>
    </message>
    <message>
        <source>its {} failed: {}</source>
        <translation>{} ist fehlgeschlagen: {}</translation>
    </message>
    <message>
        <source>the add-on {} crashed before: {} is not called any more</source>
        <translation>das Add-on {} ist zuvor abgestürzt und wird nicht mehr aufgerufen ({})</translation>
    </message>
    <message>
        <source>memory is used up: {} of the add-on {} was ended, an unfinished change of it is taken back. Close other programs, or do the work in smaller parts</source>
        <translation>der Arbeitsspeicher ist aufgebraucht: das Add-on {1} wurde unterbrochen ({0}), eine unfertige Änderung wird zurückgenommen. Schließen Sie andere Programme, oder arbeiten Sie in kleineren Teilen</translation>
    </message>
    <message>
        <source>the add-on {} let an exception out of {}: {}</source>
        <translation>das Add-on {} hat einen Fehler nicht abgefangen ({}): {}</translation>
    </message>
    <message>
        <source>the add-on {} crashed in {} ({}) and is not called any more. An unfinished change of it is taken back; save the model under another name and start the program again</source>
        <translation>das Add-on {} ist abgestürzt ({}, {}) und wird nicht mehr aufgerufen. Eine unfertige Änderung wird zurückgenommen; speichern Sie das Modell unter anderem Namen und starten Sie das Programm neu</translation>
    </message>
    <message>
        <source>there is no such folder</source>
        <translation>diesen Ordner gibt es nicht</translation>
    </message>
    <message>
        <source>it is no bundle: it has no folder Contents</source>
        <translation>das ist kein Bundle: es hat keinen Ordner Contents</translation>
    </message>
    <message>
        <source>it has no image {}</source>
        <translation>es enthält kein Programm {}</translation>
    </message>
    <message>
        <source>its image cannot be loaded: {}</source>
        <translation>sein Programm kann nicht geladen werden: {}</translation>
    </message>
    <message>
        <source>it crashed before; start the program again to use it</source>
        <translation>es ist zuvor abgestürzt; starten Sie das Programm neu, um es zu verwenden</translation>
    </message>
    <message>
        <source>its image has no entry point {}</source>
        <translation>seinem Programm fehlt der Einstieg {}</translation>
    </message>
    <message>
        <source>a segmentation fault</source>
        <translation>Speicherzugriffsfehler</translation>
    </message>
    <message>
        <source>a bus error</source>
        <translation>Busfehler</translation>
    </message>
    <message>
        <source>an arithmetic fault</source>
        <translation>Rechenfehler</translation>
    </message>
    <message>
        <source>an illegal instruction</source>
        <translation>ungültiger Maschinenbefehl</translation>
    </message>
    <message>
        <source>signal {}</source>
        <translation>Signal {}</translation>
    </message>
    <message>
        <source>it is of an unknown kind</source>
        <translation>er ist von unbekannter Art</translation>
    </message>
    <message>
        <source>error {}</source>
        <translation>Fehler {}</translation>
    </message>
    <message>
        <source>a dialog handler</source>
        <translation>Dialog</translation>
    </message>
    <message>
        <source>cannot open a model while a command of the add-on runs</source>
        <translation>während ein Befehl des Add-ons läuft, kann kein Modell geöffnet werden</translation>
    </message>
    <message>
        <source>there is no open model to save</source>
        <translation>es ist kein Modell geöffnet, das gespeichert werden könnte</translation>
    </message>
    <message>
        <source>cannot save the model while a command of the add-on runs</source>
        <translation>während ein Befehl des Add-ons läuft, kann das Modell nicht gespeichert werden</translation>
    </message>
    <message>
        <source>cannot load the add-on {}: {}</source>
        <translation>das Add-on {} kann nicht geladen werden: {}</translation>
    </message>
    <message>
        <source>another one is loaded</source>
        <translation>ein anderes ist geladen</translation>
    </message>
    <message>
        <source>cannot find the add-on: the system does not tell where this program lies (is /proc mounted?); name the add-on&apos;s bundle with --addon</source>
        <translation>das Add-on ist nicht zu finden: das System sagt nicht, wo dieses Programm liegt (ist /proc eingehängt?); nennen Sie das Bundle des Add-ons mit --addon</translation>
    </message>
    <message>
        <source>a menu command</source>
        <translation>Menübefehl</translation>
    </message>
    <message>
        <source>unknown element</source>
        <translation>unbekanntes Element</translation>
    </message>
    <message>
        <source>element without a name</source>
        <translation>Element ohne Namen</translation>
    </message>
    <message>
        <source>Command &quot;{}&quot;: {} ({})</source>
        <translation>Befehl „{}“: {} ({})</translation>
    </message>
    <message>
        <source>an undoable command</source>
        <translation>Bearbeitungsschritt</translation>
    </message>
    <message>
        <source>no model is open</source>
        <translation>es ist kein Modell geöffnet</translation>
    </message>
    <message>
        <source>there is no function to run</source>
        <translation>es gibt keine Funktion, die ausgeführt werden könnte</translation>
    </message>
    <message>
        <source>failed, all its changes are taken back</source>
        <translation>fehlgeschlagen, alle seine Änderungen sind zurückgenommen</translation>
    </message>
    <message>
        <source>the GUID is the null GUID</source>
        <translation>die GUID ist leer</translation>
    </message>
    <message>
        <source>the model has no such element</source>
        <translation>das Modell hat kein solches Element</translation>
    </message>
    <message>
        <source>there is no such kind of property</source>
        <translation>diese Art von Eigenschaft gibt es nicht</translation>
    </message>
    <message>
        <source>the line has no GUID</source>
        <translation>die Zeile hat keine GUID</translation>
    </message>
    <message>
        <source>{} is no GUID of 36 characters and no GlobalId of 22</source>
        <translation>{} ist weder eine GUID mit 36 Zeichen noch eine GlobalId mit 22</translation>
    </message>
    <message>
        <source>{} line with the GUID of a line above, the first is line {}</source>
        <translation>{} Zeile mit der GUID einer früheren, es ist Zeile {}</translation>
    </message>
    <message>
        <source>{} lines with the GUID of a line above, the first is line {}</source>
        <translation>{} Zeilen mit der GUID einer früheren, die erste ist Zeile {}</translation>
    </message>
    <message>
        <source>the column has no name in the first line</source>
        <translation>die Spalte hat keinen Namen in der ersten Zeile</translation>
    </message>
    <message>
        <source>Line {} begins with {} and no GUID: it was taken for a header</source>
        <translation>Zeile {} beginnt mit {} und nicht mit einer GUID: sie wurde für eine Kopfzeile gehalten</translation>
    </message>
    <message>
        <source>the line names no item</source>
        <translation>die Zeile nennt keine Angabe</translation>
    </message>
    <message>
        <source>comma, {}</source>
        <translation>Komma, {}</translation>
    </message>
    <message>
        <source>semicolon, {}</source>
        <translation>Semikolon, {}</translation>
    </message>
    <message>
        <source>TAB, {}</source>
        <translation>Tabulator, {}</translation>
    </message>
    <message>
        <source>bar, {}</source>
        <translation>senkrechter Strich, {}</translation>
    </message>
    <message>
        <source>sheet {}</source>
        <translation>Blatt {}</translation>
    </message>
    <message>
        <source>grid</source>
        <translation>Tabelle</translation>
    </message>
    <message>
        <source>long</source>
        <translation>Liste</translation>
    </message>
    <message>
        <source>Read {}: {}, {}, {}, {}: {}, {} unchanged, {} left out</source>
        <translation>{} gelesen: {}, {}, {}, {}: {}, {} unverändert, {} ausgelassen</translation>
    </message>
    <message>
        <source>{} element</source>
        <translation>{} Element</translation>
    </message>
    <message>
        <source>{} elements</source>
        <translation>{} Elemente</translation>
    </message>
    <message>
        <source>{} item</source>
        <translation>{} Angabe</translation>
    </message>
    <message>
        <source>{} items</source>
        <translation>{} Angaben</translation>
    </message>
    <message>
        <source>{} update</source>
        <translation>{} Aktualisierung</translation>
    </message>
    <message>
        <source>{} updates</source>
        <translation>{} Aktualisierungen</translation>
    </message>
    <message>
        <source>an Excel workbook (.xlsx)</source>
        <translation>eine Excel-Arbeitsmappe (.xlsx)</translation>
    </message>
    <message>
        <source>an OpenDocument spreadsheet (.ods)</source>
        <translation>eine OpenDocument-Tabelle (.ods)</translation>
    </message>
    <message>
        <source>delimited text</source>
        <translation>Text mit Trennzeichen</translation>
    </message>
    <message>
        <source>no comma, semicolon, TAB or bar cuts its lines into columns; name the delimiter, or save the table again</source>
        <translation>weder Komma noch Semikolon, Tabulator oder senkrechter Strich teilt die Zeilen in Spalten; nennen Sie das Trennzeichen, oder speichern Sie die Tabelle noch einmal</translation>
    </message>
    <message>
        <source>By its content it is {} and no .{}, and was read as what it is</source>
        <translation>Dem Inhalt nach ist es {} und nicht .{}; so wurde es gelesen</translation>
    </message>
    <message>
        <source>Merged cells: each of the cells under them counts as what is shown, {} in all</source>
        <translation>Verbundene Zellen: jede der Zellen darunter zählt als das, was gezeigt wird, insgesamt {}</translation>
    </message>
    <message>
        <source>{}: it is larger than {} bytes; split the table</source>
        <translation>{}: die Datei ist größer als {} Bytes; teilen Sie die Tabelle</translation>
    </message>
    <message>
        <source>{}: it is empty; save it with the table in it</source>
        <translation>{}: die Datei ist leer; speichern Sie sie mit der Tabelle darin</translation>
    </message>
    <message>
        <source>{}: it is a folder; name a file</source>
        <translation>{}: das ist ein Ordner; nennen Sie eine Datei</translation>
    </message>
    <message>
        <source>{}: it cannot be opened; check the path and the rights to read it</source>
        <translation>{}: die Datei kann nicht geöffnet werden; prüfen Sie den Pfad und das Leserecht</translation>
    </message>
    <message>
        <source>{}: it cannot be read to its end</source>
        <translation>{}: die Datei kann nicht zu Ende gelesen werden</translation>
    </message>
    <message>
        <source>GUID, item and value together are longer than the {} bytes of a line; shorten the value</source>
        <translation>GUID, Angabe und Wert sind zusammen länger als die {} Bytes einer Zeile; kürzen Sie den Wert</translation>
    </message>
    <message>
        <source>it holds a zero byte or a line end, which no line can hold; remove it</source>
        <translation>der Wert enthält ein Nullbyte oder ein Zeilenende, die in einer Zeile nicht stehen können; entfernen Sie sie</translation>
    </message>
    <message>
        <source>two columns of this name ask for different values; keep one of them</source>
        <translation>zwei Spalten dieses Namens verlangen verschiedene Werte; behalten Sie eine davon</translation>
    </message>
    <message>
        <source>line {} asks for another value of the same item; keep one of the two</source>
        <translation>Zeile {} verlangt einen anderen Wert derselben Angabe; behalten Sie eine der beiden</translation>
    </message>
    <message>
        <source>its formula has no value yet; open the file in a spreadsheet program and save it</source>
        <translation>die Formel hat noch keinen Wert; öffnen Sie die Datei in einem Tabellenprogramm und speichern Sie sie</translation>
    </message>
    <message>
        <source>the new value is empty; with --clear-empty that asks for the empty text</source>
        <translation>der neue Wert ist leer; mit --clear-empty verlangt das den leeren Text</translation>
    </message>
    <message>
        <source>it shows the error {}; fix the formula, or empty the cell</source>
        <translation>die Zelle zeigt den Fehler {}; berichtigen Sie die Formel, oder leeren Sie die Zelle</translation>
    </message>
    <message>
        <source>another column asks for the same</source>
        <translation>eine andere Spalte verlangt dasselbe</translation>
    </message>
    <message>
        <source>line {} asks for the same</source>
        <translation>Zeile {} verlangt dasselbe</translation>
    </message>
    <message>
        <source>{} cell with TABs or line ends: each became a blank</source>
        <translation>{} Zelle mit Tabulatoren oder Zeilenenden: jedes wurde ein Leerzeichen</translation>
    </message>
    <message>
        <source>{} cells with TABs or line ends: each became a blank</source>
        <translation>{} Zellen mit Tabulatoren oder Zeilenenden: jedes wurde ein Leerzeichen</translation>
    </message>
    <message>
        <source>line {}: a list of three or four columns needs no header, but this has {} columns; write a header line with GUID and the items&apos; names above</source>
        <translation>Zeile {}: eine Liste mit drei oder vier Spalten braucht keine Kopfzeile, diese hat aber {} Spalten; schreiben Sie eine Kopfzeile mit GUID und den Namen der Angaben darüber</translation>
    </message>
    <message>
        <source>line {}: the first cell is {}; write GUID above the elements&apos; GUIDs and an item above each other column, or save a list of GUID, item, old value, new value</source>
        <translation>Zeile {}: die erste Zelle ist {}; schreiben Sie GUID über die GUIDs der Elemente und über jede andere Spalte eine Angabe, oder speichern Sie eine Liste aus GUID, Angabe, altem Wert, neuem Wert</translation>
    </message>
    <message>
        <source>empty</source>
        <translation>leer</translation>
    </message>
    <message>
        <source>column {}</source>
        <translation>Spalte {}</translation>
    </message>
    <message>
        <source>a PDF</source>
        <translation>ein PDF</translation>
    </message>
    <message>
        <source>a gzip archive</source>
        <translation>ein gzip-Archiv</translation>
    </message>
    <message>
        <source>an xz archive</source>
        <translation>ein xz-Archiv</translation>
    </message>
    <message>
        <source>a program</source>
        <translation>ein Programm</translation>
    </message>
    <message>
        <source>an empty zip archive</source>
        <translation>ein leeres Zip-Archiv</translation>
    </message>
    <message>
        <source>an XML document</source>
        <translation>ein XML-Dokument</translation>
    </message>
    <message>
        <source>a web page</source>
        <translation>eine Webseite</translation>
    </message>
    <message>
        <source>a STEP file, perhaps the model itself</source>
        <translation>eine STEP-Datei, vielleicht das Modell selbst</translation>
    </message>
    <message>
        <source>it is {} and no table; save the table as .xlsx, .ods or .csv</source>
        <translation>das ist {} und keine Tabelle; speichern Sie die Tabelle als .xlsx, .ods oder .csv</translation>
    </message>
    <message>
        <source>it is a binary workbook (.xlsb); save it as .xlsx</source>
        <translation>das ist eine binäre Arbeitsmappe (.xlsb); speichern Sie sie als .xlsx</translation>
    </message>
    <message>
        <source>a text or presentation</source>
        <translation>ein Textdokument oder eine Präsentation</translation>
    </message>
    <message>
        <source>a text or drawing</source>
        <translation>ein Textdokument oder eine Zeichnung</translation>
    </message>
    <message>
        <source>a zip archive</source>
        <translation>ein Zip-Archiv</translation>
    </message>
    <message>
        <source>the workbook is encrypted; save it without a password</source>
        <translation>die Arbeitsmappe ist verschlüsselt; speichern Sie sie ohne Kennwort</translation>
    </message>
    <message>
        <source>it is in Microsoft&apos;s older format (.xls); save it as .xlsx</source>
        <translation>das ist das ältere Format von Microsoft (.xls); speichern Sie die Datei als .xlsx</translation>
    </message>
    <message>
        <source>it is empty; save it with the table in it</source>
        <translation>die Datei ist leer; speichern Sie sie mit der Tabelle darin</translation>
    </message>
    <message>
        <source>no text</source>
        <translation>kein Text</translation>
    </message>
    <message>
        <source>line {}, column {}: the quote at its beginning is never closed; close it, or write &quot;&quot; for a quote that is meant</source>
        <translation>Zeile {}, Spalte {}: das Anführungszeichen am Anfang wird nie geschlossen; schließen Sie es, oder schreiben Sie &quot;&quot; für ein Anführungszeichen, das gemeint ist</translation>
    </message>
    <message>
        <source>line {}: bytes that are not {}; name the encoding, or save the file as UTF-8</source>
        <translation>Zeile {}: Bytes, die kein {} sind; nennen Sie die Kodierung, oder speichern Sie die Datei als UTF-8</translation>
    </message>
    <message>
        <source>no encoding is called &apos;{}&apos;; try utf-8, utf-16le or windows-1252</source>
        <translation>keine Kodierung heißt „{}“; versuchen Sie utf-8, utf-16le oder windows-1252</translation>
    </message>
    <message>
        <source>sheet &apos;{}&apos;: {}</source>
        <translation>Blatt „{}“: {}</translation>
    </message>
    <message>
        <source>{} is no number; the workbook is damaged: open and save it with its own program</source>
        <translation>{} ist keine Zahl; die Arbeitsmappe ist beschädigt: öffnen und speichern Sie sie mit ihrem eigenen Programm</translation>
    </message>
    <message>
        <source>the workbook is damaged: {} {}; open and save it with its own program, or fetch it again</source>
        <translation>die Arbeitsmappe ist beschädigt: {} {}; öffnen und speichern Sie sie mit ihrem eigenen Programm, oder holen Sie sie noch einmal</translation>
    </message>
    <message>
        <source>the workbook holds thousands of parts whose names were chosen to keep programs busy; do not trust it</source>
        <translation>die Arbeitsmappe enthält Tausende Teile, deren Namen so gewählt sind, dass sie Programme lahmlegen; trauen Sie ihr nicht</translation>
    </message>
    <message>
        <source>the workbook is damaged: {}; fetch it again, or open and save it with its own program</source>
        <translation>die Arbeitsmappe ist beschädigt: {}; holen Sie sie noch einmal, oder öffnen und speichern Sie sie mit ihrem eigenen Programm</translation>
    </message>
    <message>
        <source>is missing</source>
        <translation>fehlt</translation>
    </message>
    <message>
        <source>cannot be unpacked, {}</source>
        <translation>kann nicht entpackt werden, {}</translation>
    </message>
    <message>
        <source>cannot be unpacked</source>
        <translation>kann nicht entpackt werden</translation>
    </message>
    <message>
        <source>the workbook unpacks to more than {} bytes, which no honest one of its size does; do not trust it</source>
        <translation>die Arbeitsmappe wird entpackt größer als {} Bytes, was keine redliche ihrer Größe tut; trauen Sie ihr nicht</translation>
    </message>
    <message>
        <source>more than {} cells hold something; split the table</source>
        <translation>mehr als {} Zellen sind gefüllt; teilen Sie die Tabelle</translation>
    </message>
    <message>
        <source>sheet &apos;{}&apos;, row {}, column {}: {}</source>
        <translation>Blatt „{}“, Zeile {}, Spalte {}: {}</translation>
    </message>
    <message>
        <source>no sheet of the workbook holds anything; save one with the table in it</source>
        <translation>kein Blatt der Arbeitsmappe enthält etwas; speichern Sie eine mit der Tabelle darin</translation>
    </message>
    <message>
        <source>the sheet &apos;{}&apos; is empty; choose another one</source>
        <translation>das Blatt „{}“ ist leer; wählen Sie ein anderes</translation>
    </message>
    <message>
        <source>there is no sheet &apos;{}&apos;; the workbook has none</source>
        <translation>es gibt kein Blatt „{}“; die Arbeitsmappe hat keine</translation>
    </message>
    <message>
        <source>there is no sheet &apos;{}&apos;; the workbook has {}</source>
        <translation>es gibt kein Blatt „{}“; die Arbeitsmappe hat {}</translation>
    </message>
    <message>
        <source>sheet &apos;{}&apos;: there is no row {}; the workbook is damaged: open and save it with its own program</source>
        <translation>Blatt „{}“: es gibt keine Zeile {}; die Arbeitsmappe ist beschädigt: öffnen und speichern Sie sie mit ihrem eigenen Programm</translation>
    </message>
    <message>
        <source>sheet &apos;{}&apos;, row {}: there is no cell {}; the workbook is damaged: open and save it with its own program</source>
        <translation>Blatt „{}“, Zeile {}: es gibt keine Zelle {}; die Arbeitsmappe ist beschädigt: öffnen und speichern Sie sie mit ihrem eigenen Programm</translation>
    </message>
    <message>
        <source>the cell&apos;s text is missing; the workbook is damaged: open and save it with its own program</source>
        <translation>der Text der Zelle fehlt; die Arbeitsmappe ist beschädigt: öffnen und speichern Sie sie mit ihrem eigenen Programm</translation>
    </message>
    <message>
        <source>tag too long</source>
        <translation>zu langes Tag</translation>
    </message>
    <message>
        <source>{} at line {}, column {}</source>
        <translation>{} in Zeile {}, Spalte {}</translation>
    </message>
    <message>
        <source>a document type</source>
        <translation>ein Dokumenttyp</translation>
    </message>
    <message>
        <source>the workbook is damaged: {} is no XML: {}; open and save it with its own program, or fetch it again</source>
        <translation>die Arbeitsmappe ist beschädigt: {} ist kein XML: {}; öffnen und speichern Sie sie mit ihrem eigenen Programm, oder holen Sie sie noch einmal</translation>
    </message>
    <message>
        <source>the workbook cannot be written: {}</source>
        <translation>die Arbeitsmappe kann nicht geschrieben werden: {}</translation>
    </message>
    <message>
        <source>a sheet has {} rows, the table {}; choose fewer elements, or write a .csv</source>
        <translation>ein Blatt hat {} Zeilen, die Tabelle {}; wählen Sie weniger Elemente, oder schreiben Sie eine .csv</translation>
    </message>
    <message>
        <source>a sheet has {} columns, the table {}; choose fewer items, or write a .csv</source>
        <translation>ein Blatt hat {} Spalten, die Tabelle {}; wählen Sie weniger Angaben, oder schreiben Sie eine .csv</translation>
    </message>
    <message>
        <source>row {}, column {}: the text is longer than the 32767 letters of a cell; leave the item out, or write a .csv</source>
        <translation>Zeile {}, Spalte {}: der Text ist länger als die 32767 Zeichen einer Zelle; lassen Sie die Angabe weg, oder schreiben Sie eine .csv</translation>
    </message>
    <message>
        <source>no temporary file can be made; free some space in the folder for them</source>
        <translation>keine temporäre Datei kann angelegt werden; schaffen Sie Platz im Ordner dafür</translation>
    </message>
    <message>
        <source>&apos;{}&apos; is no item: write an attribute, a property such as FireRating[WallCommon] or a classification</source>
        <translation>„{}“ ist keine Angabe: schreiben Sie ein Attribut, eine Eigenschaft wie FireRating[WallCommon] oder eine Klassifikation</translation>
    </message>
    <message>
        <source>an item with a TAB or a line end fits into no update file</source>
        <translation>eine Angabe mit Tabulator oder Zeilenende passt in keine Aktualisierungsdatei</translation>
    </message>
    <message>
        <source>the element has no such item</source>
        <translation>das Element hat keine solche Angabe</translation>
    </message>
    <message>
        <source>a list, range, enumeration, table or reference is no text that could be changed</source>
        <translation>eine Liste, ein Bereich, eine Aufzählung, eine Tabelle oder ein Verweis ist kein Text, der geändert werden könnte</translation>
    </message>
    <message>
        <source>the value holds a &apos;{&apos;, which would end it</source>
        <translation>der Wert enthält ein „{“, das ihn beenden würde</translation>
    </message>
    <message>
        <source>the value is the text .T. or .F., which would be read as true or false</source>
        <translation>der Wert ist der Text .T. oder .F., der als true oder false gelesen würde</translation>
    </message>
    <message>
        <source>the value holds half of a character, which UTF-8 cannot hold</source>
        <translation>der Wert enthält ein halbes Zeichen, das UTF-8 nicht fassen kann</translation>
    </message>
    <message>
        <source>Line {}: {}</source>
        <translation>Zeile {}: {}</translation>
    </message>
    <message>
        <source>Lines {}: {}</source>
        <translation>Zeilen {}: {}</translation>
    </message>
    <message>
        <source>; the first field is no GUID of 36 characters in {}</source>
        <translation>; das erste Feld ist keine GUID mit 36 Zeichen in {}</translation>
    </message>
    <message>
        <source>; no element has the GUID in {}</source>
        <translation>; kein Element hat die GUID in {}</translation>
    </message>
    <message>
        <source>{} line gave no row{}: check the model and the GUIDs, {} them</source>
        <translation>{} Zeile ergab keine Listenzeile{}: prüfen Sie das Modell und die GUIDs, {} sie</translation>
    </message>
    <message>
        <source>{} lines gave no row{}: check the model and the GUIDs, {} them</source>
        <translation>{} Zeilen ergaben keine Listenzeile{}: prüfen Sie das Modell und die GUIDs, {} sie</translation>
    </message>
    <message>
        <source>The file begins with a byte-order mark, which the first line&apos;s GUID then contains: save it as UTF-8 without one</source>
        <translation>Die Datei beginnt mit einer Byte-Order-Mark, die dadurch zur GUID der ersten Zeile gehört: speichern Sie sie als UTF-8 ohne diese</translation>
    </message>
    <message>
        <source>not UTF-8, read as Windows-1252: if characters look wrong, save the file as UTF-8</source>
        <translation>kein UTF-8, als Windows-1252 gelesen: wenn Zeichen falsch aussehen, speichern Sie die Datei als UTF-8</translation>
    </message>
    <message>
        <source>zero bytes, the line&apos;s text ends at the first one: remove them</source>
        <translation>Nullbytes, der Text der Zeile endet beim ersten: entfernen Sie sie</translation>
    </message>
    <message>
        <source>Line {}: the last line has no line end and was not imported: end it with one</source>
        <translation>Zeile {}: die letzte Zeile hat kein Zeilenende und wurde nicht importiert: beenden Sie sie mit einem</translation>
    </message>
    <message>
        <source>begins with a TAB, so the previous line&apos;s four fields count again: write the GUID first</source>
        <translation>beginnt mit einem Tabulator, daher gelten noch einmal die vier Felder der vorigen Zeile: schreiben Sie zuerst die GUID</translation>
    </message>
    <message>
        <source>fewer than four fields, the missing ones keep the previous line&apos;s: write GUID, item, old and new value, with a TAB between them</source>
        <translation>weniger als vier Felder, für die fehlenden gelten die der vorigen Zeile: schreiben Sie GUID, Angabe, alten und neuen Wert, mit einem Tabulator dazwischen</translation>
    </message>
    <message>
        <source>longer than 2047 bytes, cut there and the rest read as a line of its own: shorten the line</source>
        <translation>länger als 2047 Bytes, dort abgeschnitten und der Rest als eigene Zeile gelesen: kürzen Sie die Zeile</translation>
    </message>
    <message>
        <source>cells in quotes, which count as part of the text: save the file without them (tab-delimited text)</source>
        <translation>Zellen in Anführungszeichen, die als Teil des Texts zählen: speichern Sie die Datei ohne sie (als Text mit Tabulatoren)</translation>
    </message>
    <message>
        <source>a GlobalId of 22 characters where the GUID of 36 is wanted: {} both</source>
        <translation>eine GlobalId mit 22 Zeichen statt der GUID mit 36: {} beide</translation>
    </message>
    <message>
        <source>it holds no lines; write one change a line: GUID, item, old and new value</source>
        <translation>die Datei enthält keine Zeilen; schreiben Sie eine Änderung je Zeile: GUID, Angabe, alter und neuer Wert</translation>
    </message>
    <message>
        <source>{} row did not fit into the list, which holds {}: split the update file and import the parts one after the other</source>
        <translation>{} Zeile passte nicht in die Liste, die {} fasst: teilen Sie die Datei und importieren Sie die Teile nacheinander</translation>
    </message>
    <message>
        <source>{} rows did not fit into the list, which holds {}: split the update file and import the parts one after the other</source>
        <translation>{} Zeilen passten nicht in die Liste, die {} fasst: teilen Sie die Datei und importieren Sie die Teile nacheinander</translation>
    </message>
    <message>
        <source>The file is UTF-16 text, whose zero bytes end every line&apos;s text: save it as UTF-8 (in a spreadsheet: tab-delimited text, UTF-8)</source>
        <translation>Die Datei ist UTF-16-Text, dessen Nullbytes den Text jeder Zeile beenden: speichern Sie sie als UTF-8 (im Tabellenprogramm: Text mit Tabulatoren, UTF-8)</translation>
    </message>
    <message>
        <source>it is no text file; save the table as tab-delimited text in UTF-8</source>
        <translation>das ist keine Textdatei; speichern Sie die Tabelle als Text mit Tabulatoren in UTF-8</translation>
    </message>
    <message>
        <source>is nearly a classification: write {}</source>
        <translation>ist beinahe eine Klassifikation: schreiben Sie {}</translation>
    </message>
    <message>
        <source>is no classification of the element, and only {} and {} can be given to an element that has none</source>
        <translation>ist keine Klassifikation des Elements, und nur {} und {} lassen sich einem Element geben, das keine hat</translation>
    </message>
    <message>
        <source>would go into {}, since {} is put before every set: write {}</source>
        <translation>käme in {}, da {} vor jeden Satz gesetzt wird: schreiben Sie {}</translation>
    </message>
    <message>
        <source>is nearly of the standard&apos;s set {}: write {}</source>
        <translation>gehört beinahe zum Satz {} des Standards: schreiben Sie {}</translation>
    </message>
    <message>
        <source>is nearly the standard&apos;s {} of {}: write {}</source>
        <translation>ist beinahe {} aus {} des Standards: schreiben Sie {}</translation>
    </message>
    <message>
        <source>would go into {}, which the standard has for other classes than {}: write a set of your own, as in {}</source>
        <translation>käme in {}, den der Standard für andere Klassen als {} vorsieht: schreiben Sie einen eigenen Satz, wie in {}</translation>
    </message>
    <message>
        <source>would go into {}, which the standard has for other classes than {}: write {}</source>
        <translation>käme in {}, den der Standard für andere Klassen als {} vorsieht: schreiben Sie {}</translation>
    </message>
    <message>
        <source>is the standard&apos;s for {}: write {}</source>
        <translation>gehört im Standard zu {}: schreiben Sie {}</translation>
    </message>
    <message>
        <source>is nearly the attribute {0}: write {0}</source>
        <translation>ist beinahe das Attribut {0}: schreiben Sie {0}</translation>
    </message>
    <message>
        <source>is nearly the standard&apos;s {} for {}: write {}</source>
        <translation>ist beinahe {} im Standard für {}: schreiben Sie {}</translation>
    </message>
    <message>
        <source>{} more names could be better ones; fix these first</source>
        <translation>{} weitere Namen könnten besser sein; bessern Sie zuerst diese aus</translation>
    </message>
    <message>
        <source>Row {}: {}</source>
        <translation>Listenzeile {}: {}</translation>
    </message>
    <message>
        <source>Rows {}: {}</source>
        <translation>Listenzeilen {}: {}</translation>
    </message>
    <message>
        <source>{} and {}</source>
        <translation>{} und {}</translation>
    </message>
    <message>
        <source>line {}</source>
        <translation>Zeile {}</translation>
    </message>
    <message>
        <source>lines {}</source>
        <translation>Zeilen {}</translation>
    </message>
    <message>
        <source>row {}</source>
        <translation>Listenzeile {}</translation>
    </message>
    <message>
        <source>rows {}</source>
        <translation>Listenzeilen {}</translation>
    </message>
</context>
</TS>
