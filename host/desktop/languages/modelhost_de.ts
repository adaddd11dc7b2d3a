<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>Counts</name>
    <message>
        <source>change by hand</source>
        <translation>Änderung von Hand</translation>
    </message>
    <message>
        <source>changes by hand</source>
        <translation>Änderungen von Hand</translation>
    </message>
    <message>
        <source>hint</source>
        <translation>Hinweis</translation>
    </message>
    <message>
        <source>hints</source>
        <translation>Hinweise</translation>
    </message>
    <message>
        <source>element</source>
        <translation>Element</translation>
    </message>
    <message>
        <source>elements</source>
        <translation>Elemente</translation>
    </message>
    <message>
        <source>row</source>
        <translation>Zeile</translation>
    </message>
    <message>
        <source>rows</source>
        <translation>Zeilen</translation>
    </message>
    <message>
        <source>done</source>
        <translation>erledigt</translation>
    </message>
    <message>
        <source>error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>errors</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>not as asked</source>
        <translation>nicht wie verlangt</translation>
    </message>
    <message>
        <source>conflict</source>
        <translation>Konflikt</translation>
    </message>
    <message>
        <source>conflicts</source>
        <translation>Konflikte</translation>
    </message>
    <message>
        <source>GUID</source>
        <translation>GUID</translation>
    </message>
    <message>
        <source>GUIDs</source>
        <translation>GUIDs</translation>
    </message>
</context>
<context>
    <name>desktop::AddOnDialog</name>
    <message>
        <source>Notice</source>
        <translation>Hinweis</translation>
    </message>
    <message>
        <source>Text field %1 of %2</source>
        <translation>Textfeld %1 von %2</translation>
    </message>
    <message>
        <source>List of %1</source>
        <translation>Liste von %1</translation>
    </message>
    <message>
        <source>The list is full: %1 more %2 not shown, since a list holds at most %3 rows. Split the file and import its parts one after the other.</source>
        <translation>Die Liste ist voll: %1 weitere %2 nicht gezeigt, da eine Liste höchstens %3 Zeilen fasst. Teilen Sie die Datei und importieren Sie die Teile nacheinander.</translation>
    </message>
    <message>
        <source>row is</source>
        <translation>Zeile wird</translation>
    </message>
    <message>
        <source>rows are</source>
        <translation>Zeilen werden</translation>
    </message>
</context>
<context>
    <name>desktop::DebugPanel</name>
    <message>
        <source>Debug output</source>
        <translation>Debug-Ausgabe</translation>
    </message>
</context>
<context>
    <name>desktop::DesktopView</name>
    <message>
        <source>Updates and tables (*.txt *.csv *.tsv *.xlsx *.ods)</source>
        <translation>Aktualisierungen und Tabellen (*.txt *.csv *.tsv *.xlsx *.ods)</translation>
    </message>
    <message>
        <source>Tables (*.csv *.tsv *.xlsx *.ods)</source>
        <translation>Tabellen (*.csv *.tsv *.xlsx *.ods)</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Alle Dateien (*)</translation>
    </message>
</context>
<context>
    <name>desktop::EditMenu</name>
    <message>
        <source>%1 %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>Take the last step back</source>
        <translation>Den letzten Schritt zurücknehmen</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederherstellen</translation>
    </message>
    <message>
        <source>Do the step again that was taken back</source>
        <translation>Den zurückgenommenen Schritt noch einmal ausführen</translation>
    </message>
    <message>
        <source>Copy &amp;GUID</source>
        <translation>&amp;GUID kopieren</translation>
    </message>
    <message>
        <source>Copy the GUID of the selected element</source>
        <translation>Die GUID des gewählten Elements kopieren</translation>
    </message>
    <message>
        <source>&amp;Find Elements</source>
        <translation>Elemente &amp;suchen</translation>
    </message>
    <message>
        <source>Go to the filter</source>
        <translation>Zum Filter gehen</translation>
    </message>
    <message>
        <source>Copied %1</source>
        <translation>%1 kopiert</translation>
    </message>
</context>
<context>
    <name>desktop::ElementColumns</name>
    <message>
        <source>&amp;Columns</source>
        <translation>&amp;Spalten</translation>
    </message>
    <message>
        <source>&amp;Add Column…</source>
        <translation>Spalte &amp;hinzufügen…</translation>
    </message>
    <message>
        <source>&amp;Whole GUIDs</source>
        <translation>&amp;Ganze GUIDs</translation>
    </message>
    <message>
        <source>Columns as at &amp;First</source>
        <translation>Spalten wie am &amp;Anfang</translation>
    </message>
</context>
<context>
    <name>desktop::ElementExport</name>
    <message>
        <source>A table&apos;s name ends in .xlsx, .csv or .tsv.</source>
        <translation>Der Name einer Tabelle endet auf .xlsx, .csv oder .tsv.</translation>
    </message>
</context>
<context>
    <name>desktop::ElementMenu</name>
    <message>
        <source>&amp;Propose Another Value</source>
        <translation>&amp;Anderen Wert vorschlagen</translation>
    </message>
    <message>
        <source>Copy &amp;Value</source>
        <translation>&amp;Wert kopieren</translation>
    </message>
    <message>
        <source>Copy &amp;GUID</source>
        <translation>&amp;GUID kopieren</translation>
    </message>
    <message>
        <source>&amp;Look Up</source>
        <translation>&amp;Nachschlagen</translation>
    </message>
    <message>
        <source>&amp;Show in Plan</source>
        <translation>Im Grundriss &amp;zeigen</translation>
    </message>
    <message>
        <source>&amp;Export These…</source>
        <translation>Diese &amp;exportieren…</translation>
    </message>
    <message>
        <source>Copied %1</source>
        <translation>%1 kopiert</translation>
    </message>
    <message>
        <source>Export the Elements Shown</source>
        <translation>Gezeigte Elemente exportieren</translation>
    </message>
    <message>
        <source>Workbook (*.xlsx)</source>
        <translation>Arbeitsmappe (*.xlsx)</translation>
    </message>
    <message>
        <source>Comma-separated (*.csv)</source>
        <translation>Mit Kommas getrennt (*.csv)</translation>
    </message>
    <message>
        <source>TAB-separated (*.tsv)</source>
        <translation>Mit Tabulatoren getrennt (*.tsv)</translation>
    </message>
    <message>
        <source>elements</source>
        <translation>Elemente</translation>
    </message>
    <message>
        <source>%1 written to %2</source>
        <translation>%1 nach %2 geschrieben</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Export</translation>
    </message>
    <message>
        <source>%1 could not be written.</source>
        <translation>%1 konnte nicht geschrieben werden.</translation>
    </message>
</context>
<context>
    <name>desktop::ElementPanel</name>
    <message>
        <source>Elements of the model</source>
        <translation>Elemente des Modells</translation>
    </message>
    <message>
        <source>Columns of the elements</source>
        <translation>Spalten der Elemente</translation>
    </message>
    <message>
        <source>Filter of the elements</source>
        <translation>Filter der Elemente</translation>
    </message>
    <message>
        <source>Filter: words from any column, or a GUID</source>
        <translation>Filter: Wörter aus allen Spalten, oder eine GUID</translation>
    </message>
    <message>
        <source>Number of elements shown</source>
        <translation>Zahl der gezeigten Elemente</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>Show &amp;openings and aids</source>
        <translation>Öffnungen und &amp;Hilfselemente zeigen</translation>
    </message>
    <message>
        <source>Openings, annotations, grids, virtual elements, ports and structural analysis</source>
        <translation>Öffnungen, Anmerkungen, Raster, virtuelle Elemente, Anschlüsse und Statik</translation>
    </message>
    <message>
        <source>The element is one of the openings and aids, which are shown from now on</source>
        <translation>Das Element gehört zu den Öffnungen und Hilfselementen; sie werden von nun an gezeigt</translation>
    </message>
    <message>
        <source>%1 selected</source>
        <translation>%1 ausgewählt</translation>
    </message>
    <message>
        <source>%1 openings and aids hidden</source>
        <translation>%1 Öffnungen und Hilfselemente verborgen</translation>
    </message>
</context>
<context>
    <name>desktop::ElementTableModel</name>
    <message>
        <source>Storey</source>
        <translation>Geschoss</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Typ</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>GUID</source>
        <translation>GUID</translation>
    </message>
    <message>
        <source>Class</source>
        <translation>Klasse</translation>
    </message>
    <message>
        <source>Room</source>
        <translation>Raum</translation>
    </message>
</context>
<context>
    <name>desktop::FileMenu</name>
    <message>
        <source>IFC models (*.ifc *.ifczip *.ifcZIP *.IFC)</source>
        <translation>IFC-Modelle (*.ifc *.ifczip *.ifcZIP *.IFC)</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Alle Dateien (*)</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <translation>Ö&amp;ffnen…</translation>
    </message>
    <message>
        <source>Open a model</source>
        <translation>Ein Modell öffnen</translation>
    </message>
    <message>
        <source>Open &amp;Recent</source>
        <translation>&amp;Zuletzt geöffnet</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>Save the model to its file</source>
        <translation>Das Modell in seine Datei speichern</translation>
    </message>
    <message>
        <source>Save &amp;As…</source>
        <translation>Speichern &amp;unter…</translation>
    </message>
    <message>
        <source>Save the model to another file</source>
        <translation>Das Modell in eine andere Datei speichern</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>S&amp;chließen</translation>
    </message>
    <message>
        <source>Close the model</source>
        <translation>Das Modell schließen</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>Leave the program</source>
        <translation>Das Programm verlassen</translation>
    </message>
    <message>
        <source>&amp;Save Under Another Name…</source>
        <translation>Unter anderem &amp;Namen speichern…</translation>
    </message>
    <message>
        <source>The file is open in %1; save under another name</source>
        <translation>Die Datei ist in %1 geöffnet; speichern Sie unter anderem Namen</translation>
    </message>
    <message>
        <source>&amp;Clear List</source>
        <translation>Liste &amp;leeren</translation>
    </message>
    <message>
        <source>Open Model</source>
        <translation>Modell öffnen</translation>
    </message>
    <message>
        <source>Opening cancelled</source>
        <translation>Öffnen abgebrochen</translation>
    </message>
    <message>
        <source>%1 could not be opened</source>
        <translation>%1 konnte nicht geöffnet werden</translation>
    </message>
    <message>
        <source>Save Model As</source>
        <translation>Modell speichern unter</translation>
    </message>
    <message>
        <source>Saving cancelled; the file is as it was</source>
        <translation>Speichern abgebrochen; die Datei ist unverändert</translation>
    </message>
    <message>
        <source>%1 could not be saved</source>
        <translation>%1 konnte nicht gespeichert werden</translation>
    </message>
    <message>
        <source>Saved %1</source>
        <translation>%1 gespeichert</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Saving %1 changes more than its content.</source>
        <translation>Das Speichern von %1 ändert mehr als den Inhalt.</translation>
    </message>
    <message>
        <source>File Changed</source>
        <translation>Datei geändert</translation>
    </message>
    <message>
        <source>Another program has changed %1 since it was opened.</source>
        <translation>Ein anderes Programm hat %1 geändert, seit die Datei geöffnet wurde.</translation>
    </message>
    <message>
        <source>Overwriting it loses what the other program has written.</source>
        <translation>Beim Überschreiben geht verloren, was das andere Programm geschrieben hat.</translation>
    </message>
    <message>
        <source>Save Under Another &amp;Name…</source>
        <translation>Unter anderem &amp;Namen speichern…</translation>
    </message>
    <message>
        <source>&amp;Overwrite</source>
        <translation>&amp;Überschreiben</translation>
    </message>
    <message>
        <source>Changes by Hand</source>
        <translation>Änderungen von Hand</translation>
    </message>
    <message>
        <source>Discard the changes that you have proposed by hand?</source>
        <translation>Die von Hand vorgeschlagenen Änderungen verwerfen?</translation>
    </message>
    <message>
        <source>They have not been reviewed and applied.</source>
        <translation>Sie sind nicht geprüft und übernommen worden.</translation>
    </message>
    <message>
        <source>Unsaved Changes</source>
        <translation>Ungespeicherte Änderungen</translation>
    </message>
    <message>
        <source>Save the changes to %1?</source>
        <translation>Die Änderungen an %1 speichern?</translation>
    </message>
    <message>
        <source>Changes that are not saved are lost.</source>
        <translation>Was nicht gespeichert wird, geht verloren.</translation>
    </message>
</context>
<context>
    <name>desktop::FileTasks</name>
    <message>
        <source>Opening %1</source>
        <translation>%1 wird geöffnet</translation>
    </message>
    <message>
        <source>Saving %1</source>
        <translation>%1 wird gespeichert</translation>
    </message>
</context>
<context>
    <name>desktop::HandBar</name>
    <message>
        <source>Review…</source>
        <translation>Prüfen…</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Verwerfen</translation>
    </message>
    <message>
        <source>Review the changes proposed by hand</source>
        <translation>Die von Hand vorgeschlagenen Änderungen prüfen</translation>
    </message>
    <message>
        <source>Review these changes like any other updates, and apply those that you tick</source>
        <translation>Diese Änderungen wie alle anderen prüfen und die angekreuzten übernehmen</translation>
    </message>
    <message>
        <source>Discard the changes proposed by hand</source>
        <translation>Die von Hand vorgeschlagenen Änderungen verwerfen</translation>
    </message>
</context>
<context>
    <name>desktop::HandChanges</name>
    <message>
        <source>The element has no name, and changes of such an element are refused.</source>
        <translation>Das Element hat keinen Namen; Änderungen an solchen Elementen werden abgelehnt.</translation>
    </message>
    <message>
        <source>An update cannot hold a TAB.</source>
        <translation>Eine Änderung kann keinen Tabulator enthalten.</translation>
    </message>
    <message>
        <source>By hand</source>
        <translation>Von Hand</translation>
    </message>
</context>
<context>
    <name>desktop::HelpMenu</name>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;Add-On Help</source>
        <translation>&amp;Hilfe zum Add-on</translation>
    </message>
    <message>
        <source>Open the folder %1</source>
        <translation>Den Ordner %1 öffnen</translation>
    </message>
    <message>
        <source>Add-On Help</source>
        <translation>Hilfe zum Add-on</translation>
    </message>
    <message>
        <source>No program is set up to show folders. The help is in %1</source>
        <translation>Kein Programm ist eingerichtet, um Ordner zu zeigen. Die Hilfe liegt in %1</translation>
    </message>
    <message>
        <source>A&amp;bout</source>
        <translation>&amp;Über</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Über</translation>
    </message>
    <message>
        <source>Opens IFC models and runs an add-on on them.
Version %1, Qt %2</source>
        <translation>Öffnet IFC-Modelle und führt ein Add-on darauf aus.
Version %1, Qt %2</translation>
    </message>
    <message>
        <source>

Add-on: %1
%2</source>
        <translation>

Add-on: %1
%2</translation>
    </message>
</context>
<context>
    <name>desktop::HintBar</name>
    <message>
        <source>Hints</source>
        <translation>Hinweise</translation>
    </message>
    <message>
        <source>%1 about %2</source>
        <translation>%1 zu %2</translation>
    </message>
</context>
<context>
    <name>desktop::Imports</name>
    <message>
        <source>It asks for nothing that the model does not hold already.
%1</source>
        <translation>Sie verlangt nichts, was das Modell nicht schon enthält.
%1</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>Import</translation>
    </message>
    <message>
        <source>Nothing to import from %1.</source>
        <translation>Aus %1 ist nichts zu importieren.</translation>
    </message>
    <message>
        <source>Go on with list %1 of %2?</source>
        <translation>Mit Liste %1 von %2 fortfahren?</translation>
    </message>
    <message>
        <source>A list holds at most %1 rows, so %2 is reviewed in several.</source>
        <translation>Eine Liste fasst höchstens %1 Zeilen, daher wird %2 in mehreren geprüft.</translation>
    </message>
    <message>
        <source>&amp;Go On</source>
        <translation>&amp;Fortfahren</translation>
    </message>
    <message>
        <source>&amp;Stop Here</source>
        <translation>&amp;Hier aufhören</translation>
    </message>
</context>
<context>
    <name>desktop::InspectorPanel</name>
    <message>
        <source>New value of %1</source>
        <translation>Neuer Wert von %1</translation>
    </message>
    <message>
        <source>Data of the selected element</source>
        <translation>Daten des gewählten Elements</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>No element selected</source>
        <translation>Kein Element gewählt</translation>
    </message>
    <message>
        <source>Proposed by hand: %1</source>
        <translation>Von Hand vorgeschlagen: %1</translation>
    </message>
    <message>
        <source>Element</source>
        <translation>Element</translation>
    </message>
    <message>
        <source>GUID</source>
        <translation>GUID</translation>
    </message>
    <message>
        <source>Class</source>
        <translation>Klasse</translation>
    </message>
    <message>
        <source>Storey</source>
        <translation>Geschoss</translation>
    </message>
    <message>
        <source>Instance</source>
        <translation>Instanz</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>Anmerkung</translation>
    </message>
    <message>
        <source>Others in the file bear the same GlobalId</source>
        <translation>Andere in der Datei tragen dieselbe GlobalId</translation>
    </message>
    <message>
        <source>Attributes</source>
        <translation>Attribute</translation>
    </message>
    <message>
        <source>Not readable</source>
        <translation>Nicht lesbar</translation>
    </message>
    <message>
        <source>Properties</source>
        <translation>Eigenschaften</translation>
    </message>
    <message>
        <source> (from the type)</source>
        <translation> (vom Typ)</translation>
    </message>
    <message>
        <source>Classification references</source>
        <translation>Klassifikationen</translation>
    </message>
    <message>
        <source>%1 elements selected</source>
        <translation>%1 Elemente ausgewählt</translation>
    </message>
    <message>
        <source>The values of more than %1 elements are not compared</source>
        <translation>Die Werte von mehr als %1 Elementen werden nicht verglichen</translation>
    </message>
    <message>
        <source>%1 of them</source>
        <translation>%1 davon</translation>
    </message>
    <message>
        <source>(various)</source>
        <translation>(verschieden)</translation>
    </message>
    <message>
        <source>(various, in %1 of %2)</source>
        <translation>(verschieden, in %1 von %2)</translation>
    </message>
    <message>
        <source>%1   (in %2 of %3)</source>
        <translation>%1   (in %2 von %3)</translation>
    </message>
</context>
<context>
    <name>desktop::ItemDialog</name>
    <message>
        <source>Add Column</source>
        <translation>Spalte hinzufügen</translation>
    </message>
    <message>
        <source>Filter of the items</source>
        <translation>Filter der Angaben</translation>
    </message>
    <message>
        <source>Words of the name or the set</source>
        <translation>Wörter aus dem Namen oder dem Satz</translation>
    </message>
    <message>
        <source>Items of the model</source>
        <translation>Angaben des Modells</translation>
    </message>
    <message>
        <source>Item</source>
        <translation>Angabe</translation>
    </message>
    <message>
        <source>Set</source>
        <translation>Satz</translation>
    </message>
    <message>
        <source>Elements</source>
        <translation>Elemente</translation>
    </message>
    <message>
        <source>Example</source>
        <translation>Beispiel</translation>
    </message>
    <message>
        <source>&amp;Add</source>
        <translation>&amp;Hinzufügen</translation>
    </message>
    <message>
        <source>Reading the elements: %1 %</source>
        <translation>Elemente werden gelesen: %1 %</translation>
    </message>
    <message>
        <source>(attribute)</source>
        <translation>(Attribut)</translation>
    </message>
    <message>
        <source>(classification)</source>
        <translation>(Klassifikation)</translation>
    </message>
</context>
<context>
    <name>desktop::MainToolBar</name>
    <message>
        <source>Tool Bar</source>
        <translation>Werkzeugleiste</translation>
    </message>
</context>
<context>
    <name>desktop::MainWindow</name>
    <message>
        <source>Plan</source>
        <translation>Grundriss</translation>
    </message>
    <message>
        <source>Element</source>
        <translation>Element</translation>
    </message>
    <message>
        <source>Messages</source>
        <translation>Meldungen</translation>
    </message>
    <message>
        <source>Debug Output</source>
        <translation>Debug-Ausgabe</translation>
    </message>
    <message>
        <source>Review</source>
        <translation>Prüfung</translation>
    </message>
    <message>
        <source>Model</source>
        <translation>Modell</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Import Updates</source>
        <translation>Aktualisierungen importieren</translation>
    </message>
    <message>
        <source>Look Up</source>
        <translation>Nachschlagen</translation>
    </message>
    <message>
        <source>Report</source>
        <translation>Bericht</translation>
    </message>
    <message>
        <source>Messages (%1)</source>
        <translation>Meldungen (%1)</translation>
    </message>
    <message>
        <source>The add-on&apos;s command ended with the error 0x%1</source>
        <translation>Der Befehl des Add-ons endete mit dem Fehler 0x%1</translation>
    </message>
    <message>
        <source>Add-On</source>
        <translation>Add-on</translation>
    </message>
    <message>
        <source>The add-on could not be loaded.</source>
        <translation>Das Add-on konnte nicht geladen werden.</translation>
    </message>
    <message>
        <source>%1 holds changes to a model, and no model is open.</source>
        <translation>%1 enthält Änderungen an einem Modell, und kein Modell ist geöffnet.</translation>
    </message>
    <message>
        <source>Open the model that they are for; the review begins then.</source>
        <translation>Öffnen Sie das Modell, für das sie bestimmt sind; dann beginnt die Prüfung.</translation>
    </message>
    <message>
        <source>&amp;Open Model…</source>
        <translation>Modell &amp;öffnen…</translation>
    </message>
    <message>
        <source>Change by Hand</source>
        <translation>Änderung von Hand</translation>
    </message>
    <message>
        <source>This cannot be proposed.</source>
        <translation>Das kann nicht vorgeschlagen werden.</translation>
    </message>
    <message>
        <source> (read-only)</source>
        <translation> (schreibgeschützt)</translation>
    </message>
    <message>
        <source>The changes by hand cannot be written to the folder for temporary files</source>
        <translation>Die Änderungen von Hand können nicht in den Ordner für temporäre Dateien geschrieben werden</translation>
    </message>
    <message>
        <source>%1 of %2 changes cannot be proposed.</source>
        <translation>%1 von %2 Änderungen können nicht vorgeschlagen werden.</translation>
    </message>
</context>
<context>
    <name>desktop::PickedUpdates</name>
    <message>
        <source>%1 more cells or lines were left out; fix these first</source>
        <translation>%1 weitere Zellen oder Zeilen wurden ausgelassen; bessern Sie zuerst diese aus</translation>
    </message>
    <message>
        <source>Left out: line %1%2: %3</source>
        <translation>Ausgelassen: Zeile %1%2: %3</translation>
    </message>
</context>
<context>
    <name>desktop::PlanOutput</name>
    <message>
        <source>Save P&amp;lan As…</source>
        <translation>P&amp;lan speichern unter…</translation>
    </message>
    <message>
        <source>Pr&amp;int Plan…</source>
        <translation>Plan &amp;drucken…</translation>
    </message>
    <message>
        <source>Save the plan as it is shown: as a drawing (.svg) or a page (.pdf)</source>
        <translation>Den Plan speichern, wie er gezeigt wird: als Zeichnung (.svg) oder Seite (.pdf)</translation>
    </message>
    <message>
        <source>Print the plan as it is shown</source>
        <translation>Den Plan drucken, wie er gezeigt wird</translation>
    </message>
    <message>
        <source>Save Plan As</source>
        <translation>Plan speichern unter</translation>
    </message>
    <message>
        <source>Page (*.pdf)</source>
        <translation>Seite (*.pdf)</translation>
    </message>
    <message>
        <source>Drawing (*.svg)</source>
        <translation>Zeichnung (*.svg)</translation>
    </message>
    <message>
        <source>%1 could not be written.</source>
        <translation>%1 konnte nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>A plan&apos;s name ends in .svg or .pdf.</source>
        <translation>Der Name eines Plans endet auf .svg oder .pdf.</translation>
    </message>
    <message>
        <source>Plan written to %1</source>
        <translation>Plan geschrieben: %1</translation>
    </message>
    <message>
        <source>The plan could not be printed.</source>
        <translation>Der Plan konnte nicht gedruckt werden.</translation>
    </message>
    <message>
        <source>The printer does not answer.</source>
        <translation>Der Drucker antwortet nicht.</translation>
    </message>
    <message>
        <source>Plan</source>
        <translation>Grundriss</translation>
    </message>
    <message>
        <source>Scale 1:%1</source>
        <translation>Maßstab 1:%1</translation>
    </message>
    <message>
        <source>Plan sent to the printer</source>
        <translation>Grundriss an den Drucker gesendet</translation>
    </message>
</context>
<context>
    <name>desktop::PlanPanel</name>
    <message>
        <source>Storey shown in the plan</source>
        <translation>Im Grundriss gezeigtes Geschoss</translation>
    </message>
    <message>
        <source>Zoom in</source>
        <translation>Vergrößern</translation>
    </message>
    <message>
        <source>Zoom out</source>
        <translation>Verkleinern</translation>
    </message>
    <message>
        <source>Fit</source>
        <translation>Alles</translation>
    </message>
    <message>
        <source>Show the whole storey</source>
        <translation>Das ganze Geschoss zeigen</translation>
    </message>
    <message>
        <source>All storeys</source>
        <translation>Alle Geschosse</translation>
    </message>
    <message>
        <source>(in no storey)</source>
        <translation>(in keinem Geschoss)</translation>
    </message>
    <message>
        <source> – %1 of %2 marked</source>
        <translation> – %1 von %2 markiert</translation>
    </message>
    <message>
        <source>Click a point</source>
        <translation>Klicken Sie einen Punkt an</translation>
    </message>
    <message>
        <source>%1   (Esc cancels)</source>
        <translation>%1   (Esc bricht ab)</translation>
    </message>
    <message>
        <source>&amp;Rooms</source>
        <translation>&amp;Räume</translation>
    </message>
    <message>
        <source>&amp;Furniture and Equipment</source>
        <translation>&amp;Möbel und Ausstattung</translation>
    </message>
    <message>
        <source>&amp;Grid</source>
        <translation>R&amp;aster</translation>
    </message>
    <message>
        <source>&amp;Openings</source>
        <translation>&amp;Öffnungen</translation>
    </message>
    <message>
        <source>&amp;Terrain</source>
        <translation>&amp;Gelände</translation>
    </message>
    <message>
        <source>&amp;Annotations</source>
        <translation>A&amp;nmerkungen</translation>
    </message>
    <message>
        <source>%1 m</source>
        <translation>%1 m</translation>
    </message>
    <message>
        <source>Layers</source>
        <translation>Ebenen</translation>
    </message>
    <message>
        <source>Choose what is shown in the plan</source>
        <translation>Wählen, was der Plan zeigt</translation>
    </message>
    <message>
        <source>The file does not say where they stand, or by a curve of a kind that is not followed</source>
        <translation>Die Datei sagt nicht, wo sie stehen, oder sagt es mit einer Kurve unbekannter Art</translation>
    </message>
    <message>
        <source>Without a place in the plan: %1</source>
        <translation>Ohne Platz im Grundriss: %1</translation>
    </message>
</context>
<context>
    <name>desktop::PlanView</name>
    <message>
        <source>nothing to do</source>
        <translation>nichts zu tun</translation>
    </message>
    <message>
        <source>done</source>
        <translation>erledigt</translation>
    </message>
    <message>
        <source>not ticked</source>
        <translation>nicht angekreuzt</translation>
    </message>
    <message>
        <source>ticked</source>
        <translation>angekreuzt</translation>
    </message>
    <message>
        <source>failed</source>
        <translation>gescheitert</translation>
    </message>
    <message>
        <source>Plan of the model</source>
        <translation>Grundriss des Modells</translation>
    </message>
    <message>
        <source>Reading the geometry…</source>
        <translation>Die Geometrie wird gelesen…</translation>
    </message>
    <message>
        <source>%1 m</source>
        <translation>%1 m</translation>
    </message>
    <message>
        <source>N</source>
        <comment>north</comment>
        <translation>N</translation>
    </message>
    <message>
        <source>%1 m²</source>
        <translation>%1 m²</translation>
    </message>
</context>
<context>
    <name>desktop::ReadOnlyBar</name>
    <message>
        <source>Read-only</source>
        <translation>Schreibgeschützt</translation>
    </message>
    <message>
        <source>Open Again</source>
        <translation>Noch einmal öffnen</translation>
    </message>
    <message>
        <source>Save As…</source>
        <translation>Speichern unter…</translation>
    </message>
    <message>
        <source>The file is open in %1 and was opened here for reading: save changes under another name.</source>
        <translation>Die Datei ist in %1 geöffnet und wurde hier nur zum Lesen geöffnet: speichern Sie Änderungen unter anderem Namen.</translation>
    </message>
</context>
<context>
    <name>desktop::ReportPanel</name>
    <message>
        <source>Report</source>
        <translation>Bericht</translation>
    </message>
</context>
<context>
    <name>desktop::Review</name>
    <message>
        <source>No row is ticked: tick those to write, or all of them</source>
        <translation>Keine Zeile ist angekreuzt: kreuzen Sie die zu schreibenden an, oder alle</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>und %1 weitere</translation>
    </message>
</context>
<context>
    <name>desktop::ReviewBar</name>
    <message>
        <source>%1 of %2 shown</source>
        <translation>%1 von %2 gezeigt</translation>
    </message>
    <message>
        <source>%1 of %2 ticked</source>
        <translation>%1 von %2 angekreuzt</translation>
    </message>
    <message>
        <source>All rows</source>
        <translation>Alle Zeilen</translation>
    </message>
    <message>
        <source>Ticked</source>
        <translation>Angekreuzt</translation>
    </message>
    <message>
        <source>Errors</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Not as asked</source>
        <translation>Nicht wie verlangt</translation>
    </message>
    <message>
        <source>Conflicts</source>
        <translation>Konflikte</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Erledigt</translation>
    </message>
    <message>
        <source>Nothing to do</source>
        <translation>Nichts zu tun</translation>
    </message>
    <message>
        <source>Store as Asked</source>
        <translation>Wie verlangt speichern</translation>
    </message>
    <message>
        <source>Report…</source>
        <translation>Bericht…</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Totals</source>
        <translation>Summen</translation>
    </message>
    <message>
        <source>Rows to show</source>
        <translation>Zu zeigende Zeilen</translation>
    </message>
    <message>
        <source>Show rows with this text</source>
        <translation>Zeilen mit diesem Text zeigen</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filter</translation>
    </message>
    <message>
        <source>Write what came of this review: as a page, a workbook or JSON</source>
        <translation>Das Ergebnis dieser Prüfung schreiben: als Seite, Arbeitsmappe oder JSON</translation>
    </message>
    <message>
        <source>Close the review and take its last step back</source>
        <translation>Die Prüfung schließen und ihren letzten Schritt zurücknehmen</translation>
    </message>
    <message>
        <source>Close the review and save the model</source>
        <translation>Die Prüfung schließen und das Modell speichern</translation>
    </message>
    <message>
        <source>Store %1 as Asked</source>
        <translation>%1 wie verlangt speichern</translation>
    </message>
    <message>
        <source>Writes what the file asks for where the model holds something else, as an undoable step of its own</source>
        <translation>Schreibt, was die Datei verlangt, wo das Modell etwas anderes enthält; als eigenen Schritt, der zurückgenommen werden kann</translation>
    </message>
    <message>
        <source>No applied row holds something else than the file asks for</source>
        <translation>Keine übernommene Zeile enthält etwas anderes, als die Datei verlangt</translation>
    </message>
</context>
<context>
    <name>desktop::ReviewReports</name>
    <message>
        <source>Page (*.html)</source>
        <translation>Seite (*.html)</translation>
    </message>
    <message>
        <source>Workbook (*.xlsx)</source>
        <translation>Arbeitsmappe (*.xlsx)</translation>
    </message>
    <message>
        <source>JSON (*.json)</source>
        <translation>JSON (*.json)</translation>
    </message>
    <message>
        <source>Re&amp;port…</source>
        <translation>Be&amp;richt…</translation>
    </message>
    <message>
        <source>Write what came of the last review: as a page, a workbook or JSON</source>
        <translation>Das Ergebnis der letzten Prüfung schreiben: als Seite, Arbeitsmappe oder JSON</translation>
    </message>
    <message>
        <source>Write Report</source>
        <translation>Bericht schreiben</translation>
    </message>
    <message>
        <source>%1-report</source>
        <translation>%1-Bericht</translation>
    </message>
    <message>
        <source>Report</source>
        <translation>Bericht</translation>
    </message>
    <message>
        <source>%1 could not be written.</source>
        <translation>%1 konnte nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>A report&apos;s name ends in .html, .xlsx or .json.</source>
        <translation>Der Name eines Berichts endet auf .html, .xlsx oder .json.</translation>
    </message>
    <message>
        <source>Report written to %1</source>
        <translation>Bericht nach %1 geschrieben</translation>
    </message>
</context>
<context>
    <name>desktop::RowListModel</name>
    <message>
        <source>ticked</source>
        <translation>angekreuzt</translation>
    </message>
    <message>
        <source>not ticked</source>
        <translation>nicht angekreuzt</translation>
    </message>
</context>
<context>
    <name>desktop::StartPage</name>
    <message>
        <source>not found</source>
        <translation>nicht gefunden</translation>
    </message>
    <message>
        <source>Review proposed changes of a building model, and apply those that you tick.</source>
        <translation>Vorgeschlagene Änderungen an einem Gebäudemodell prüfen und die angekreuzten übernehmen.</translation>
    </message>
    <message>
        <source>&amp;Open Model…</source>
        <translation>Modell &amp;öffnen…</translation>
    </message>
    <message>
        <source>Open a model</source>
        <translation>Ein Modell öffnen</translation>
    </message>
    <message>
        <source>or drop a model here (.ifc, .ifczip)</source>
        <translation>oder ziehen Sie ein Modell hierher (.ifc, .ifczip)</translation>
    </message>
    <message>
        <source>Open the model.</source>
        <translation>Das Modell öffnen.</translation>
    </message>
    <message>
        <source>Import updates: a list of proposed changes, or a spreadsheet.</source>
        <translation>Aktualisierungen importieren: eine Liste von Vorschlägen oder eine Tabelle.</translation>
    </message>
    <message>
        <source>Tick what is to be written, apply it, and save.</source>
        <translation>Ankreuzen, was geschrieben werden soll, übernehmen und speichern.</translation>
    </message>
    <message>
        <source>Models opened last</source>
        <translation>Zuletzt geöffnete Modelle</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Ordner</translation>
    </message>
    <message>
        <source>Changed</source>
        <translation>Geändert</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
</context>
<context>
    <name>desktop::ValueText</name>
    <message>
        <source>(list of values)</source>
        <translation>(Liste von Werten)</translation>
    </message>
    <message>
        <source>(bounded value)</source>
        <translation>(Wertebereich)</translation>
    </message>
    <message>
        <source>(enumerated value)</source>
        <translation>(Aufzählungswert)</translation>
    </message>
    <message>
        <source>(table of values)</source>
        <translation>(Wertetabelle)</translation>
    </message>
    <message>
        <source>(reference)</source>
        <translation>(Verweis)</translation>
    </message>
</context>
<context>
    <name>desktop::ViewMenu</name>
    <message>
        <source>&amp;Plan</source>
        <translation>&amp;Grundriss</translation>
    </message>
    <message>
        <source>&amp;Element</source>
        <translation>&amp;Element</translation>
    </message>
    <message>
        <source>&amp;Messages</source>
        <translation>&amp;Meldungen</translation>
    </message>
    <message>
        <source>&amp;Debug Output</source>
        <translation>&amp;Debug-Ausgabe</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>Show or hide this panel</source>
        <translation>Diesen Bereich zeigen oder verbergen</translation>
    </message>
    <message>
        <source>&amp;Tool Bar</source>
        <translation>&amp;Werkzeugleiste</translation>
    </message>
    <message>
        <source>Show or hide the tool bar</source>
        <translation>Die Werkzeugleiste zeigen oder verbergen</translation>
    </message>
</context>
</TS>
