<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>DemoWindow</name>
    <message>
        <source>Properties</source>
        <translation>Eigenschaften</translation>
    </message>
    <message>
        <source>&lt;b&gt;Wheel hub&lt;/b&gt; &amp;nbsp;·&amp;nbsp; 3 objects selected</source>
        <translation>&lt;b&gt;Radnabe&lt;/b&gt; &amp;nbsp;·&amp;nbsp; 3 Objekte ausgewählt</translation>
    </message>
    <message>
        <source>Mixed selection</source>
        <translation>Gemischte Auswahl</translation>
    </message>
    <message>
        <source>The selected objects hold different values: every control shows its varies state</source>
        <translation>Die ausgewählten Objekte haben verschiedene Werte: jedes Steuerelement zeigt, dass sie variieren</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>Dunkel</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>Hell</translation>
    </message>
    <message>
        <source>Property grid</source>
        <translation>Eigenschaftentabelle</translation>
    </message>
    <message>
        <source>Writes the bag accepts or refuses appear here.</source>
        <translation>Hier erscheinen die Schreibvorgänge, die die Eigenschaftensammlung annimmt oder ablehnt.</translation>
    </message>
    <message>
        <source>%1 cannot show its item: %2</source>
        <translation>%1 kann sein Element nicht zeigen: %2</translation>
    </message>
    <message>
        <source>Radius</source>
        <translation>Radius</translation>
    </message>
    <message>
        <source>Segments</source>
        <translation>Segmente</translation>
    </message>
    <message>
        <source>Visible</source>
        <translation>Sichtbar</translation>
    </message>
    <message>
        <source>Drawing redrawn %1 times</source>
        <translation>Zeichnung %1-mal neu gezeichnet</translation>
    </message>
</context>
<context>
    <name>DrawingCanvas</name>
    <message>
        <source>Drawing</source>
        <translation>Zeichnung</translation>
    </message>
</context>
<context>
    <name>DrawingEditorWindow</name>
    <message>
        <source>Drawing</source>
        <translation>Zeichnung</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;New</source>
        <translation>&amp;Neu</translation>
    </message>
    <message>
        <source>&amp;Open...</source>
        <translation>Ö&amp;ffnen...</translation>
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
        <source>Save &amp;As...</source>
        <translation>Speichern &amp;unter...</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
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
        <source>&amp;Redo</source>
        <translation>&amp;Wiederherstellen</translation>
    </message>
    <message>
        <source>Select &amp;All</source>
        <translation>&amp;Alles auswählen</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>Zoom &amp;Extents</source>
        <translation>&amp;Alles zeigen</translation>
    </message>
    <message>
        <source>&amp;Dark Theme</source>
        <translation>&amp;Dunkles Design</translation>
    </message>
    <message>
        <source>&amp;Light Theme</source>
        <translation>&amp;Helles Design</translation>
    </message>
    <message>
        <source>Properties as &amp;Controls</source>
        <translation>Eigenschaften als &amp;Steuerelemente</translation>
    </message>
    <message>
        <source>Properties as &amp;Grid</source>
        <translation>Eigenschaften als &amp;Tabelle</translation>
    </message>
    <message>
        <source>Control &amp;Catalogue</source>
        <translation>Steuerelement-&amp;Katalog</translation>
    </message>
    <message>
        <source>No recent drawings</source>
        <translation>Keine zuletzt geöffneten Zeichnungen</translation>
    </message>
    <message>
        <source>&amp;Clear List</source>
        <translation>Liste &amp;leeren</translation>
    </message>
    <message>
        <source>Unsaved Changes</source>
        <translation>Ungespeicherte Änderungen</translation>
    </message>
    <message>
        <source>%1 has changes that are not saved.</source>
        <translation>%1 hat Änderungen, die nicht gespeichert sind.</translation>
    </message>
    <message>
        <source>Save them first, discard them, or cancel and go on editing.</source>
        <translation>Sie können sie zuerst speichern, sie verwerfen oder abbrechen und weiter bearbeiten.</translation>
    </message>
    <message>
        <source>New drawing</source>
        <translation>Neue Zeichnung</translation>
    </message>
    <message>
        <source>Open Drawing</source>
        <translation>Zeichnung öffnen</translation>
    </message>
    <message>
        <source>DXF drawings (*.dxf);;All files (*)</source>
        <translation>DXF-Zeichnungen (*.dxf);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Open Recent Drawing</source>
        <translation>Zuletzt geöffnete Zeichnung öffnen</translation>
    </message>
    <message>
        <source>%1 no longer exists; it has been taken off the recent drawings.</source>
        <translation>%1 gibt es nicht mehr; die Datei wurde aus den zuletzt geöffneten Zeichnungen entfernt.</translation>
    </message>
    <message>
        <source>Opened %1</source>
        <translation>%1 geöffnet</translation>
    </message>
    <message>
        <source>Save Drawing As</source>
        <translation>Zeichnung speichern unter</translation>
    </message>
    <message>
        <source>DXF drawings (*.dxf)</source>
        <translation>DXF-Zeichnungen (*.dxf)</translation>
    </message>
    <message>
        <source>Save Drawing</source>
        <translation>Zeichnung speichern</translation>
    </message>
    <message>
        <source>Saving %1 changes more than your edits:</source>
        <translation>Das Speichern von %1 ändert mehr als Ihre Bearbeitungen:</translation>
    </message>
    <message>
        <source>Save Anyway</source>
        <translation>Trotzdem speichern</translation>
    </message>
    <message>
        <source>Saved %1</source>
        <translation>%1 gespeichert</translation>
    </message>
    <message>
        <source>Sample drawing</source>
        <translation>Beispielzeichnung</translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation>Unbenannt</translation>
    </message>
    <message>
        <source>Opened %1; objects of kinds the editor does not know, left out: %2</source>
        <translation>%1 geöffnet; ausgelassene Objekte von Arten, die der Editor nicht kennt: %2</translation>
    </message>
    <message>
        <source>The reason is not known.</source>
        <translation>Der Grund ist nicht bekannt.</translation>
    </message>
    <message>
        <source>%1 cannot be opened.</source>
        <translation>%1 kann nicht geöffnet werden.</translation>
    </message>
    <message>
        <source>%1 cannot be saved.</source>
        <translation>%1 kann nicht gespeichert werden.</translation>
    </message>
    <message>
        <source>The folder %1 does not exist.</source>
        <translation>Den Ordner %1 gibt es nicht.</translation>
    </message>
    <message>
        <source>%1 is a file, not a folder.</source>
        <translation>%1 ist eine Datei, kein Ordner.</translation>
    </message>
    <message>
        <source>A folder of that name is in the way.</source>
        <translation>Ein Ordner dieses Namens steht im Weg.</translation>
    </message>
    <message>
        <source>The file is read-only.</source>
        <translation>Die Datei ist schreibgeschützt.</translation>
    </message>
    <message>
        <source>The folder %1 does not allow writing.</source>
        <translation>Der Ordner %1 erlaubt kein Schreiben.</translation>
    </message>
</context>
<context>
    <name>DrawingPropertyBag</name>
    <message>
        <source>General</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>Geometry</source>
        <translation>Geometrie</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>Layer</source>
        <translation>Layer</translation>
    </message>
    <message>
        <source>The layer the objects are on</source>
        <translation>Der Layer, auf dem die Objekte liegen</translation>
    </message>
    <message>
        <source>Colour</source>
        <translation>Farbe</translation>
    </message>
    <message>
        <source>The colour the objects are drawn in</source>
        <translation>Die Farbe, in der die Objekte gezeichnet werden</translation>
    </message>
    <message>
        <source>Linetype</source>
        <translation>Linientyp</translation>
    </message>
    <message>
        <source>The dash pattern of the lines</source>
        <translation>Das Strichmuster der Linien</translation>
    </message>
    <message>
        <source>Lineweight</source>
        <translation>Linienstärke</translation>
    </message>
    <message>
        <source>The printed width of the lines</source>
        <translation>Die gedruckte Breite der Linien</translation>
    </message>
    <message>
        <source>Linetype scale</source>
        <translation>Linientypfaktor</translation>
    </message>
    <message>
        <source>How long the dashes are, relative to the linetype</source>
        <translation>Wie lang die Striche sind, bezogen auf den Linientyp</translation>
    </message>
    <message>
        <source>The linetype scale must be greater than zero.</source>
        <translation>Der Linientypfaktor muss größer als null sein.</translation>
    </message>
    <message>
        <source>Visible</source>
        <translation>Sichtbar</translation>
    </message>
    <message>
        <source>Whether the objects are drawn</source>
        <translation>Ob die Objekte gezeichnet werden</translation>
    </message>
    <message>
        <source>Start point</source>
        <translation>Startpunkt</translation>
    </message>
    <message>
        <source>Where the line starts</source>
        <translation>Wo die Linie beginnt</translation>
    </message>
    <message>
        <source>End point</source>
        <translation>Endpunkt</translation>
    </message>
    <message>
        <source>Where the line ends</source>
        <translation>Wo die Linie endet</translation>
    </message>
    <message>
        <source>Centre</source>
        <translation>Mittelpunkt</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>First point</source>
        <translation>Erster Punkt</translation>
    </message>
    <message>
        <source>The first point the dimension measures from</source>
        <translation>Der erste Punkt, von dem aus die Bemaßung misst</translation>
    </message>
    <message>
        <source>Second point</source>
        <translation>Zweiter Punkt</translation>
    </message>
    <message>
        <source>The second point the dimension measures to</source>
        <translation>Der zweite Punkt, bis zu dem die Bemaßung misst</translation>
    </message>
    <message>
        <source>Dimension line</source>
        <translation>Maßlinie</translation>
    </message>
    <message>
        <source>A point the dimension line passes through</source>
        <translation>Ein Punkt, durch den die Maßlinie verläuft</translation>
    </message>
    <message>
        <source>Vertices</source>
        <translation>Scheitelpunkte</translation>
    </message>
    <message>
        <source>The corners of the polyline; pick one by its number</source>
        <translation>Die Eckpunkte der Polylinie; einer wird über seine Nummer gewählt</translation>
    </message>
    <message>
        <source>Radius</source>
        <translation>Radius</translation>
    </message>
    <message>
        <source>The radius of the circle or arc</source>
        <translation>Der Radius des Kreises oder Bogens</translation>
    </message>
    <message>
        <source>The radius must be greater than zero.</source>
        <translation>Der Radius muss größer als null sein.</translation>
    </message>
    <message>
        <source>Diameter</source>
        <translation>Durchmesser</translation>
    </message>
    <message>
        <source>Twice the radius</source>
        <translation>Der doppelte Radius</translation>
    </message>
    <message>
        <source>The diameter must be greater than zero.</source>
        <translation>Der Durchmesser muss größer als null sein.</translation>
    </message>
    <message>
        <source>Start angle</source>
        <translation>Startwinkel</translation>
    </message>
    <message>
        <source>End angle</source>
        <translation>Endwinkel</translation>
    </message>
    <message>
        <source>Arc length</source>
        <translation>Bogenlänge</translation>
    </message>
    <message>
        <source>The length along the arc</source>
        <translation>Die Länge entlang des Bogens</translation>
    </message>
    <message>
        <source>Circumference</source>
        <translation>Umfang</translation>
    </message>
    <message>
        <source>The length around the circle</source>
        <translation>Die Länge rund um den Kreis</translation>
    </message>
    <message>
        <source>Length</source>
        <translation>Länge</translation>
    </message>
    <message>
        <source>The length of the line or polyline</source>
        <translation>Die Länge der Linie oder Polylinie</translation>
    </message>
    <message>
        <source>Area</source>
        <translation>Fläche</translation>
    </message>
    <message>
        <source>The area enclosed</source>
        <translation>Die umschlossene Fläche</translation>
    </message>
    <message>
        <source>Closed</source>
        <translation>Geschlossen</translation>
    </message>
    <message>
        <source>Whether the last vertex joins the first</source>
        <translation>Ob der letzte Scheitelpunkt mit dem ersten verbunden ist</translation>
    </message>
    <message>
        <source>Rotation</source>
        <translation>Drehung</translation>
    </message>
    <message>
        <source>The rotation about the insertion point</source>
        <translation>Die Drehung um den Einfügepunkt</translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>Skalierung</translation>
    </message>
    <message>
        <source>The scale of the block in X and Y</source>
        <translation>Die Skalierung des Blocks in X und Y</translation>
    </message>
    <message>
        <source>A scale cannot be zero.</source>
        <translation>Eine Skalierung kann nicht null sein.</translation>
    </message>
    <message>
        <source>Block</source>
        <translation>Block</translation>
    </message>
    <message>
        <source>The block the insert shows</source>
        <translation>Der Block, den die Einfügung zeigt</translation>
    </message>
    <message>
        <source>Contents</source>
        <translation>Inhalt</translation>
    </message>
    <message>
        <source>The text shown</source>
        <translation>Der angezeigte Text</translation>
    </message>
    <message>
        <source>Height</source>
        <translation>Höhe</translation>
    </message>
    <message>
        <source>The height of the letters</source>
        <translation>Die Höhe der Buchstaben</translation>
    </message>
    <message>
        <source>The text height must be greater than zero.</source>
        <translation>Die Texthöhe muss größer als null sein.</translation>
    </message>
    <message>
        <source>Measurement</source>
        <translation>Messwert</translation>
    </message>
    <message>
        <source>The distance the dimension measures</source>
        <translation>Der Abstand, den die Bemaßung misst</translation>
    </message>
    <message>
        <source>Dimension text</source>
        <translation>Bemaßungstext</translation>
    </message>
    <message>
        <source>Text shown instead of the measurement; empty shows the measurement</source>
        <translation>Text, der statt des Messwerts gezeigt wird; leer zeigt den Messwert</translation>
    </message>
    <message>
        <source>%1 takes a number.</source>
        <translation>%1 erwartet eine Zahl.</translation>
    </message>
    <message>
        <source>%1 must lie between -1e100 and 1e100.</source>
        <translation>%1 muss zwischen -1e100 und 1e100 liegen.</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Ja</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Nein</translation>
    </message>
    <message>
        <source>X</source>
        <translation>X</translation>
    </message>
    <message>
        <source>Y</source>
        <translation>Y</translation>
    </message>
    <message>
        <source>Z</source>
        <translation>Z</translation>
    </message>
    <message>
        <source>Vertex %1 %2</source>
        <translation>Scheitelpunkt %1 %2</translation>
    </message>
    <message>
        <source>Change %1</source>
        <translation>%1 ändern</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>Links</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Rechts</translation>
    </message>
    <message>
        <source>Aligned</source>
        <translation>Ausgerichtet</translation>
    </message>
    <message>
        <source>Middle</source>
        <translation>Mitte</translation>
    </message>
    <message>
        <source>Fit</source>
        <translation>Eingepasst</translation>
    </message>
    <message>
        <source>Top Left</source>
        <translation>Oben links</translation>
    </message>
    <message>
        <source>Top Centre</source>
        <translation>Oben zentriert</translation>
    </message>
    <message>
        <source>Top Right</source>
        <translation>Oben rechts</translation>
    </message>
    <message>
        <source>Middle Left</source>
        <translation>Mitte links</translation>
    </message>
    <message>
        <source>Middle Centre</source>
        <translation>Mitte zentriert</translation>
    </message>
    <message>
        <source>Middle Right</source>
        <translation>Mitte rechts</translation>
    </message>
    <message>
        <source>Bottom Left</source>
        <translation>Unten links</translation>
    </message>
    <message>
        <source>Bottom Centre</source>
        <translation>Unten zentriert</translation>
    </message>
    <message>
        <source>Bottom Right</source>
        <translation>Unten rechts</translation>
    </message>
    <message>
        <source>Hatch</source>
        <translation>Schraffur</translation>
    </message>
    <message>
        <source>The centre of the circle, arc or ellipse</source>
        <translation>Der Mittelpunkt des Kreises, Bogens oder der Ellipse</translation>
    </message>
    <message>
        <source>The insertion point, or where the point is</source>
        <translation>Der Einfügepunkt, oder wo der Punkt liegt</translation>
    </message>
    <message>
        <source>Number of vertices</source>
        <translation>Anzahl der Scheitelpunkte</translation>
    </message>
    <message>
        <source>How many corners the polyline has</source>
        <translation>Wie viele Ecken die Polylinie hat</translation>
    </message>
    <message>
        <source>Control points</source>
        <translation>Kontrollpunkte</translation>
    </message>
    <message>
        <source>The points that pull the spline into shape; pick one by its number</source>
        <translation>Die Punkte, die den Spline formen; einen nach seiner Nummer wählen</translation>
    </message>
    <message>
        <source>Point %1 %2</source>
        <translation>Punkt %1 %2</translation>
    </message>
    <message>
        <source>Major axis</source>
        <translation>Hauptachse</translation>
    </message>
    <message>
        <source>The length of the ellipse&apos;s longer axis, through its centre</source>
        <translation>Die Länge der längeren Achse der Ellipse, durch ihren Mittelpunkt</translation>
    </message>
    <message>
        <source>The major axis must be longer than zero.</source>
        <translation>Die Hauptachse muss länger als null sein.</translation>
    </message>
    <message>
        <source>Minor axis</source>
        <translation>Nebenachse</translation>
    </message>
    <message>
        <source>The length of the ellipse&apos;s shorter axis; it sets the ratio</source>
        <translation>Die Länge der kürzeren Achse der Ellipse; sie bestimmt das Verhältnis</translation>
    </message>
    <message>
        <source>The minor axis must be longer than zero and no longer than the major axis.</source>
        <translation>Die Nebenachse muss länger als null und höchstens so lang wie die Hauptachse sein.</translation>
    </message>
    <message>
        <source>Ratio</source>
        <translation>Verhältnis</translation>
    </message>
    <message>
        <source>The minor axis as a share of the major axis</source>
        <translation>Die Nebenachse als Anteil der Hauptachse</translation>
    </message>
    <message>
        <source>The ratio must be greater than zero and at most 1.</source>
        <translation>Das Verhältnis muss größer als null und höchstens 1 sein.</translation>
    </message>
    <message>
        <source>Where the arc starts, counter-clockwise from the X axis; on an ellipse, from its major axis</source>
        <translation>Wo der Bogen beginnt, gegen den Uhrzeigersinn ab der X-Achse; bei einer Ellipse ab ihrer Hauptachse</translation>
    </message>
    <message>
        <source>Where the arc ends, counter-clockwise from the X axis; on an ellipse, from its major axis</source>
        <translation>Wo der Bogen endet, gegen den Uhrzeigersinn ab der X-Achse; bei einer Ellipse ab ihrer Hauptachse</translation>
    </message>
    <message>
        <source>Degree</source>
        <translation>Grad</translation>
    </message>
    <message>
        <source>The degree of the spline&apos;s curve; shown only, as another degree would need other knots</source>
        <translation>Der Grad der Splinekurve; nur angezeigt, da ein anderer Grad andere Knoten bräuchte</translation>
    </message>
    <message>
        <source>The text shown, a line per paragraph; the last line adds a paragraph</source>
        <translation>Der angezeigte Text, eine Zeile je Absatz; die letzte Zeile fügt einen Absatz hinzu</translation>
    </message>
    <message>
        <source>Attributes</source>
        <translation>Attribute</translation>
    </message>
    <message>
        <source>The values the block&apos;s attributes hold, by tag</source>
        <translation>Die Werte der Attribute des Blocks, nach Bezeichner</translation>
    </message>
    <message>
        <source>Style</source>
        <translation>Stil</translation>
    </message>
    <message>
        <source>The text style: font and its settings</source>
        <translation>Der Textstil: Schrift und ihre Einstellungen</translation>
    </message>
    <message>
        <source>Alignment</source>
        <translation>Ausrichtung</translation>
    </message>
    <message>
        <source>Which point of the text its insertion point is</source>
        <translation>Welcher Punkt des Textes sein Einfügepunkt ist</translation>
    </message>
    <message>
        <source>Width factor</source>
        <translation>Breitenfaktor</translation>
    </message>
    <message>
        <source>How wide the letters are, relative to the font</source>
        <translation>Wie breit die Buchstaben sind, bezogen auf die Schrift</translation>
    </message>
    <message>
        <source>The width factor must be greater than zero.</source>
        <translation>Der Breitenfaktor muss größer als null sein.</translation>
    </message>
    <message>
        <source>Oblique angle</source>
        <translation>Neigungswinkel</translation>
    </message>
    <message>
        <source>How far the letters lean, from upright</source>
        <translation>Wie weit sich die Buchstaben aus der Senkrechten neigen</translation>
    </message>
    <message>
        <source>The oblique angle must lie between -85° and 85°.</source>
        <translation>Der Neigungswinkel muss zwischen -85° und 85° liegen.</translation>
    </message>
    <message>
        <source>Pattern</source>
        <translation>Muster</translation>
    </message>
    <message>
        <source>The pattern the hatch is filled with</source>
        <translation>Das Muster, mit dem die Schraffur gefüllt ist</translation>
    </message>
    <message>
        <source>Pattern scale</source>
        <translation>Musterskalierung</translation>
    </message>
    <message>
        <source>How large the pattern is drawn</source>
        <translation>Wie groß das Muster gezeichnet wird</translation>
    </message>
    <message>
        <source>The pattern scale must be greater than zero.</source>
        <translation>Die Musterskalierung muss größer als null sein.</translation>
    </message>
    <message>
        <source>Pattern angle</source>
        <translation>Musterwinkel</translation>
    </message>
    <message>
        <source>How far the pattern is turned</source>
        <translation>Wie weit das Muster gedreht ist</translation>
    </message>
    <message>
        <source>Solid fill</source>
        <translation>Volle Füllung</translation>
    </message>
    <message>
        <source>Whether the hatch is filled solid; the SOLID pattern fills it, any other pattern does not</source>
        <translation>Ob die Schraffur voll gefüllt ist; das Muster SOLID füllt sie, jedes andere nicht</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>Anzeigen</translation>
    </message>
    <message>
        <source>Which of the selected objects the palette shows and edits: all of them, or those of one kind</source>
        <translation>Welche der gewählten Objekte die Palette zeigt und bearbeitet: alle oder die einer Art</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Typ</translation>
    </message>
    <message>
        <source>What kind of object it is</source>
        <translation>Welche Art Objekt es ist</translation>
    </message>
    <message>
        <source>All (%1)</source>
        <translation>Alle (%1)</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>%1 takes one of the values it lists.</source>
        <translation>%1 nimmt einen der aufgeführten Werte an.</translation>
    </message>
    <message>
        <source>New paragraph</source>
        <translation>Neuer Absatz</translation>
    </message>
    <message>
        <source>Paragraph %1</source>
        <translation>Absatz %1</translation>
    </message>
</context>
<context>
    <name>DxfGroupScanner</name>
    <message>
        <source>&quot;%1&quot; is not a group code</source>
        <translation>„%1“ ist kein Gruppencode</translation>
    </message>
    <message>
        <source>the line is longer than %1 characters</source>
        <translation>die Zeile ist länger als %1 Zeichen</translation>
    </message>
    <message>
        <source>the line holds a zero byte, which no text file does</source>
        <translation>die Zeile enthält ein Null-Byte, das in keiner Textdatei vorkommt</translation>
    </message>
    <message>
        <source>group %1 holds &quot;%2&quot;, which is not a number</source>
        <translation>Gruppe %1 enthält „%2“, was keine Zahl ist</translation>
    </message>
    <message>
        <source>group %1 holds %2, more than a drawing can measure</source>
        <translation>Gruppe %1 enthält %2, mehr als eine Zeichnung messen kann</translation>
    </message>
    <message>
        <source>group %1 holds &quot;%2&quot;, which is not a whole number</source>
        <translation>Gruppe %1 enthält „%2“, was keine ganze Zahl ist</translation>
    </message>
    <message>
        <source>group %1 holds %2, out of its range</source>
        <translation>Gruppe %1 enthält %2, außerhalb ihres Bereichs</translation>
    </message>
</context>
<context>
    <name>DxfReader</name>
    <message>
        <source>%1 is a binary DXF file; only text DXF files can be opened.</source>
        <translation>%1 ist eine binäre DXF-Datei; nur DXF-Textdateien können geöffnet werden.</translation>
    </message>
    <message>
        <source>%1 is not a DXF drawing.</source>
        <translation>%1 ist keine DXF-Zeichnung.</translation>
    </message>
    <message>
        <source>%1 is damaged at line %2: %3.</source>
        <translation>%1 ist in Zeile %2 beschädigt: %3.</translation>
    </message>
    <message>
        <source>%1 ends early: the file is incomplete.</source>
        <translation>%1 endet zu früh: Die Datei ist unvollständig.</translation>
    </message>
    <message>
        <source>%1 takes more than %2 entities to draw, each block counted as often as it is inserted.</source>
        <translation>%1 braucht mehr als %2 Objekte zum Zeichnen, jeder Block so oft gezählt, wie er eingefügt ist.</translation>
    </message>
    <message>
        <source>Cannot open %1: %2</source>
        <translation>%1 kann nicht geöffnet werden: %2</translation>
    </message>
    <message>
        <source>%1 is larger than %2 MB, more than this editor opens.</source>
        <translation>%1 ist größer als %2 MB, mehr als dieser Editor öffnet.</translation>
    </message>
    <message>
        <source>Cannot read %1: %2</source>
        <translation>%1 kann nicht gelesen werden: %2</translation>
    </message>
    <message>
        <source>%1 is damaged at line %2: a second section of entities.</source>
        <translation>%1 ist in Zeile %2 beschädigt: ein zweiter Abschnitt mit Objekten.</translation>
    </message>
</context>
<context>
    <name>DxfWriter</name>
    <message numerus="yes">
        <source>The lineweights of %n entities cannot be kept: %1 files have none.</source>
        <translation>
            <numerusform>Die Linienstärke von %n Objekt kann nicht erhalten bleiben: %1-Dateien haben keine.</numerusform>
            <numerusform>Die Linienstärken von %n Objekten können nicht erhalten bleiben: %1-Dateien haben keine.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>The true colours of %n entities cannot be kept: %1 files have palette colours only; the nearest is written.</source>
        <translation>
            <numerusform>Die Echtfarbe von %n Objekt kann nicht erhalten bleiben: %1-Dateien haben nur Palettenfarben; die nächste wird geschrieben.</numerusform>
            <numerusform>Die Echtfarben von %n Objekten können nicht erhalten bleiben: %1-Dateien haben nur Palettenfarben; die nächste wird geschrieben.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n new entities cannot be written in a %1 file and are left out.</source>
        <translation>
            <numerusform>%n neues Objekt kann nicht in eine %1-Datei geschrieben werden und wird weggelassen.</numerusform>
            <numerusform>%n neue Objekte können nicht in eine %1-Datei geschrieben werden und werden weggelassen.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n polylines keep their old vertices: their count changed, which the file&apos;s polylines cannot take.</source>
        <translation>
            <numerusform>%n Polylinie behält ihre alten Scheitelpunkte: Ihre Anzahl hat sich geändert, was die Polylinien der Datei nicht aufnehmen können.</numerusform>
            <numerusform>%n Polylinien behalten ihre alten Scheitelpunkte: Ihre Anzahl hat sich geändert, was die Polylinien der Datei nicht aufnehmen können.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n hatches keep their old boundaries.</source>
        <translation>
            <numerusform>%n Schraffur behält ihre alten Grenzen.</numerusform>
            <numerusform>%n Schraffuren behalten ihre alten Grenzen.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n inserts keep their old attributes: their count changed.</source>
        <translation>
            <numerusform>%n Blockreferenz behält ihre alten Attribute: Ihre Anzahl hat sich geändert.</numerusform>
            <numerusform>%n Blockreferenzen behalten ihre alten Attribute: Ihre Anzahl hat sich geändert.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n images keep the file they showed.</source>
        <translation>
            <numerusform>%n Bild behält die Datei, die es zeigte.</numerusform>
            <numerusform>%n Bilder behalten die Datei, die sie zeigten.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n dimensions keep their type.</source>
        <translation>
            <numerusform>%n Bemaßung behält ihren Typ.</numerusform>
            <numerusform>%n Bemaßungen behalten ihren Typ.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n entities keep their kind.</source>
        <translation>
            <numerusform>%n Objekt behält seine Art.</numerusform>
            <numerusform>%n Objekte behalten ihre Art.</numerusform>
        </translation>
    </message>
    <message>
        <source>Cannot write %1.</source>
        <translation>%1 kann nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>Cannot replace %1.</source>
        <translation>%1 kann nicht ersetzt werden.</translation>
    </message>
    <message numerus="yes">
        <source>%n entities of kinds this editor does not know cannot be written.</source>
        <translation>
            <numerusform>%n Objekt einer Art, die dieser Editor nicht kennt, kann nicht geschrieben werden.</numerusform>
            <numerusform>%n Objekte von Arten, die dieser Editor nicht kennt, können nicht geschrieben werden.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n images cannot be written.</source>
        <translation>
            <numerusform>%n Bild kann nicht geschrieben werden.</numerusform>
            <numerusform>%n Bilder können nicht geschrieben werden.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>The attributes of %n inserts cannot be written.</source>
        <translation>
            <numerusform>Die Attribute von %n Blockreferenz können nicht geschrieben werden.</numerusform>
            <numerusform>Die Attribute von %n Blockreferenzen können nicht geschrieben werden.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>The oblique angle of %n texts cannot be written.</source>
        <translation>
            <numerusform>Der Neigungswinkel von %n Text kann nicht geschrieben werden.</numerusform>
            <numerusform>Der Neigungswinkel von %n Texten kann nicht geschrieben werden.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>EntityKindName</name>
    <message>
        <source>Line</source>
        <translation>Linie</translation>
    </message>
    <message>
        <source>Circle</source>
        <translation>Kreis</translation>
    </message>
    <message>
        <source>Arc</source>
        <translation>Bogen</translation>
    </message>
    <message>
        <source>Polyline</source>
        <translation>Polylinie</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>Multiline Text</source>
        <translation>Absatztext</translation>
    </message>
    <message>
        <source>Block Reference</source>
        <translation>Blockreferenz</translation>
    </message>
    <message>
        <source>Dimension</source>
        <translation>Bemaßung</translation>
    </message>
    <message>
        <source>Ellipse</source>
        <translation>Ellipse</translation>
    </message>
    <message>
        <source>Spline</source>
        <translation>Spline</translation>
    </message>
    <message>
        <source>Hatch</source>
        <translation>Schraffur</translation>
    </message>
    <message>
        <source>Point</source>
        <translation>Punkt</translation>
    </message>
    <message>
        <source>Solid</source>
        <translation>Füllfläche</translation>
    </message>
    <message>
        <source>Trace</source>
        <translation>Band</translation>
    </message>
    <message>
        <source>Image</source>
        <translation>Bild</translation>
    </message>
    <message>
        <source>Other</source>
        <translation>Sonstiges</translation>
    </message>
</context>
<context>
    <name>PaletteGrid</name>
    <message>
        <source>Property grid</source>
        <translation>Eigenschaftentabelle</translation>
    </message>
</context>
<context>
    <name>PropertyPalette</name>
    <message>
        <source>Palette form</source>
        <translation>Form der Palette</translation>
    </message>
    <message>
        <source>Property panel</source>
        <translation>Eigenschaftenfeld</translation>
    </message>
    <message>
        <source>Controls</source>
        <translation>Steuerelemente</translation>
    </message>
    <message>
        <source>Grid</source>
        <translation>Tabelle</translation>
    </message>
    <message>
        <source>No selection</source>
        <translation>Keine Auswahl</translation>
    </message>
    <message>
        <source>1 object selected</source>
        <translation>1 Objekt ausgewählt</translation>
    </message>
    <message>
        <source>%1 objects selected</source>
        <translation>%1 Objekte ausgewählt</translation>
    </message>
    <message>
        <source>%1 objects selected, %2 shown</source>
        <translation>%1 Objekte ausgewählt, %2 angezeigt</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>Error box</source>
        <translation>Fehlermeldung</translation>
    </message>
    <message>
        <source>Note box</source>
        <translation>Hinweis</translation>
    </message>
    <message>
        <source>General</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>What the object is called and how it behaves</source>
        <translation>Wie das Objekt heißt und wie es sich verhält</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>The name shown in the object browser</source>
        <translation>Der Name, der im Objektbrowser gezeigt wird</translation>
    </message>
    <message>
        <source>A name cannot be empty.</source>
        <translation>Ein Name kann nicht leer sein.</translation>
    </message>
    <message>
        <source>Layer</source>
        <translation>Layer</translation>
    </message>
    <message>
        <source>The layer the object is drawn on</source>
        <translation>Der Layer, auf dem das Objekt gezeichnet wird</translation>
    </message>
    <message>
        <source>Objects cannot be moved onto a locked layer.</source>
        <translation>Objekte können nicht auf einen gesperrten Layer verschoben werden.</translation>
    </message>
    <message>
        <source>Lock the layer</source>
        <translation>Layer sperren</translation>
    </message>
    <message>
        <source>Colour</source>
        <translation>Farbe</translation>
    </message>
    <message>
        <source>The colour the object is drawn in</source>
        <translation>Die Farbe, in der das Objekt gezeichnet wird</translation>
    </message>
    <message>
        <source>Linetype</source>
        <translation>Linientyp</translation>
    </message>
    <message>
        <source>The dash pattern of the object&apos;s lines</source>
        <translation>Das Strichmuster der Linien des Objekts</translation>
    </message>
    <message>
        <source>Lineweight</source>
        <translation>Linienstärke</translation>
    </message>
    <message>
        <source>The printed width of the object&apos;s lines</source>
        <translation>Die gedruckte Breite der Linien des Objekts</translation>
    </message>
    <message>
        <source>Revision note</source>
        <translation>Revisionsvermerk</translation>
    </message>
    <message>
        <source>Free text kept with the object</source>
        <translation>Freier Text, der beim Objekt gespeichert wird</translation>
    </message>
    <message>
        <source>Visible</source>
        <translation>Sichtbar</translation>
    </message>
    <message>
        <source>Whether the object is drawn</source>
        <translation>Ob das Objekt gezeichnet wird</translation>
    </message>
    <message>
        <source>Locked</source>
        <translation>Gesperrt</translation>
    </message>
    <message>
        <source>A locked object cannot be moved</source>
        <translation>Ein gesperrtes Objekt kann nicht verschoben werden</translation>
    </message>
    <message>
        <source>Protect from edits</source>
        <translation>Vor Änderungen schützen</translation>
    </message>
    <message>
        <source>Snap to grid</source>
        <translation>Am Raster fangen</translation>
    </message>
    <message>
        <source>Moves snap the object to the grid</source>
        <translation>Beim Verschieben fängt das Objekt am Raster</translation>
    </message>
    <message>
        <source>Annotative</source>
        <translation>Beschriftungsskaliert</translation>
    </message>
    <message>
        <source>Scales with the viewport</source>
        <translation>Skaliert mit dem Ansichtsfenster</translation>
    </message>
    <message>
        <source>Scale with viewport</source>
        <translation>Mit dem Ansichtsfenster skalieren</translation>
    </message>
    <message>
        <source>Last revised</source>
        <translation>Zuletzt revidiert</translation>
    </message>
    <message>
        <source>Date of the last approved change</source>
        <translation>Datum der letzten freigegebenen Änderung</translation>
    </message>
    <message>
        <source>A revision cannot be dated after 2030.</source>
        <translation>Eine Revision kann nicht nach 2030 datiert sein.</translation>
    </message>
    <message>
        <source>Geometry</source>
        <translation>Geometrie</translation>
    </message>
    <message>
        <source>Size and placement</source>
        <translation>Größe und Lage</translation>
    </message>
    <message>
        <source>Radius</source>
        <translation>Radius</translation>
    </message>
    <message>
        <source>Radius of the hub circle, in mm</source>
        <translation>Radius des Nabenkreises, in mm</translation>
    </message>
    <message>
        <source>The radius must be greater than zero.</source>
        <translation>Der Radius muss größer als null sein.</translation>
    </message>
    <message>
        <source>Thickness</source>
        <translation>Dicke</translation>
    </message>
    <message>
        <source>Extrusion thickness, in mm</source>
        <translation>Extrusionsdicke, in mm</translation>
    </message>
    <message>
        <source>The thickness cannot be negative.</source>
        <translation>Die Dicke kann nicht negativ sein.</translation>
    </message>
    <message>
        <source>Rotation</source>
        <translation>Drehung</translation>
    </message>
    <message>
        <source>Rotation about the insertion point</source>
        <translation>Drehung um den Einfügepunkt</translation>
    </message>
    <message>
        <source>Scale factor</source>
        <translation>Skalierfaktor</translation>
    </message>
    <message>
        <source>Uniform scale of the object</source>
        <translation>Gleichmäßige Skalierung des Objekts</translation>
    </message>
    <message>
        <source>The scale factor must be greater than zero.</source>
        <translation>Der Skalierfaktor muss größer als null sein.</translation>
    </message>
    <message>
        <source>Reset to 1</source>
        <translation>Auf 1 zurücksetzen</translation>
    </message>
    <message>
        <source>Segments</source>
        <translation>Segmente</translation>
    </message>
    <message>
        <source>Number of segments of the tessellation</source>
        <translation>Anzahl der Segmente der Unterteilung</translation>
    </message>
    <message>
        <source>The number of segments must be even.</source>
        <translation>Die Anzahl der Segmente muss gerade sein.</translation>
    </message>
    <message>
        <source>Opacity</source>
        <translation>Deckkraft</translation>
    </message>
    <message>
        <source>Opacity in percent</source>
        <translation>Deckkraft in Prozent</translation>
    </message>
    <message>
        <source>Vertices</source>
        <translation>Scheitelpunkte</translation>
    </message>
    <message>
        <source>Corner points of the outline</source>
        <translation>Eckpunkte des Umrisses</translation>
    </message>
    <message>
        <source>X</source>
        <translation>X</translation>
    </message>
    <message>
        <source>Y</source>
        <translation>Y</translation>
    </message>
    <message>
        <source>Start point</source>
        <translation>Startpunkt</translation>
    </message>
    <message>
        <source>Where the centre line starts</source>
        <translation>Wo die Mittellinie beginnt</translation>
    </message>
    <message>
        <source>Z</source>
        <translation>Z</translation>
    </message>
    <message>
        <source>End point</source>
        <translation>Endpunkt</translation>
    </message>
    <message>
        <source>Where the centre line ends, in plan</source>
        <translation>Wo die Mittellinie endet, im Grundriss</translation>
    </message>
    <message>
        <source>3D vertices</source>
        <translation>3D-Scheitelpunkte</translation>
    </message>
    <message>
        <source>Corners of the hub&apos;s bounding box</source>
        <translation>Ecken des umschließenden Quaders der Nabe</translation>
    </message>
    <message>
        <source>Block scale</source>
        <translation>Blockskalierung</translation>
    </message>
    <message>
        <source>Scale of the block in X and Y</source>
        <translation>Skalierung des Blocks in X und Y</translation>
    </message>
    <message>
        <source>A scale must be greater than zero.</source>
        <translation>Eine Skalierung muss größer als null sein.</translation>
    </message>
    <message>
        <source>Drawing</source>
        <translation>Zeichnung</translation>
    </message>
    <message>
        <source>The sheets and the title block</source>
        <translation>Die Blätter und das Schriftfeld</translation>
    </message>
    <message>
        <source>Layouts</source>
        <translation>Layouts</translation>
    </message>
    <message>
        <source>Ticked layouts are plotted; a pinned one opens first</source>
        <translation>Angehakte Layouts werden geplottet; ein angeheftetes öffnet sich zuerst</translation>
    </message>
    <message>
        <source>Model</source>
        <translation>Modell</translation>
    </message>
    <message>
        <source>Assembly</source>
        <translation>Baugruppe</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>Details</translation>
    </message>
    <message>
        <source>Parts list</source>
        <translation>Stückliste</translation>
    </message>
    <message>
        <source>Title block</source>
        <translation>Schriftfeld</translation>
    </message>
    <message>
        <source>The fields of the sheet&apos;s title block</source>
        <translation>Die Felder des Schriftfelds des Blatts</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>Wheel hub</source>
        <translation>Radnabe</translation>
    </message>
    <message>
        <source>Drawn by</source>
        <translation>Gezeichnet von</translation>
    </message>
    <message>
        <source>Sheet</source>
        <translation>Blatt</translation>
    </message>
    <message>
        <source>Field</source>
        <translation>Feld</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>Object snaps</source>
        <translation>Objektfang</translation>
    </message>
    <message>
        <source>The snaps in force while drawing</source>
        <translation>Die Fangmodi, die beim Zeichnen gelten</translation>
    </message>
    <message>
        <source>Endpoint</source>
        <translation>Endpunkt</translation>
    </message>
    <message>
        <source>Midpoint</source>
        <translation>Mittelpunkt</translation>
    </message>
    <message>
        <source>Center</source>
        <translation>Zentrum</translation>
    </message>
    <message>
        <source>Intersection</source>
        <translation>Schnittpunkt</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>The object&apos;s label</source>
        <translation>Die Beschriftung des Objekts</translation>
    </message>
    <message>
        <source>Text height</source>
        <translation>Texthöhe</translation>
    </message>
    <message>
        <source>A standard height, or type your own</source>
        <translation>Eine Standardhöhe, oder eine eigene eingeben</translation>
    </message>
    <message>
        <source>The text height must be greater than zero.</source>
        <translation>Die Texthöhe muss größer als null sein.</translation>
    </message>
    <message>
        <source>Text style</source>
        <translation>Textstil</translation>
    </message>
    <message>
        <source>The style of the label text</source>
        <translation>Der Stil des Beschriftungstexts</translation>
    </message>
    <message>
        <source>Standard</source>
        <translation>Standard</translation>
    </message>
    <message>
        <source>Notes</source>
        <translation>Notizen</translation>
    </message>
    <message>
        <source>Leader arrow</source>
        <translation>Führungspfeil</translation>
    </message>
    <message>
        <source>The arrowhead of the label&apos;s leader</source>
        <translation>Die Pfeilspitze der Führungslinie der Beschriftung</translation>
    </message>
    <message>
        <source>Justification</source>
        <translation>Ausrichtung</translation>
    </message>
    <message>
        <source>Where the text sits on its insertion point</source>
        <translation>Wo der Text an seinem Einfügepunkt sitzt</translation>
    </message>
    <message>
        <source>Top left</source>
        <translation>Oben links</translation>
    </message>
    <message>
        <source>Top centre</source>
        <translation>Oben Mitte</translation>
    </message>
    <message>
        <source>Top right</source>
        <translation>Oben rechts</translation>
    </message>
    <message>
        <source>Middle left</source>
        <translation>Mitte links</translation>
    </message>
    <message>
        <source>Middle centre</source>
        <translation>Mitte Mitte</translation>
    </message>
    <message>
        <source>Middle right</source>
        <translation>Mitte rechts</translation>
    </message>
    <message>
        <source>Bottom left</source>
        <translation>Unten links</translation>
    </message>
    <message>
        <source>Bottom centre</source>
        <translation>Unten Mitte</translation>
    </message>
    <message>
        <source>Bottom right</source>
        <translation>Unten rechts</translation>
    </message>
    <message>
        <source>Alignment</source>
        <translation>Zeilenausrichtung</translation>
    </message>
    <message>
        <source>Alignment of the text lines</source>
        <translation>Ausrichtung der Textzeilen</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>Links</translation>
    </message>
    <message>
        <source>Centre</source>
        <translation>Mitte</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Rechts</translation>
    </message>
    <message>
        <source>Units</source>
        <translation>Einheiten</translation>
    </message>
    <message>
        <source>Units of the dimension text</source>
        <translation>Einheiten des Bemaßungstexts</translation>
    </message>
    <message>
        <source>Frame</source>
        <translation>Rahmen</translation>
    </message>
    <message>
        <source>The frame drawn around the text</source>
        <translation>Der Rahmen, der um den Text gezeichnet wird</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keiner</translation>
    </message>
    <message>
        <source>Box</source>
        <translation>Rechteck</translation>
    </message>
    <message>
        <source>Round</source>
        <translation>Rund</translation>
    </message>
    <message>
        <source>Commands</source>
        <translation>Befehle</translation>
    </message>
    <message>
        <source>What can be done with the selection</source>
        <translation>Was sich mit der Auswahl tun lässt</translation>
    </message>
    <message>
        <source>Quick tools</source>
        <translation>Schnellwerkzeuge</translation>
    </message>
    <message>
        <source>Commands for the selection</source>
        <translation>Befehle für die Auswahl</translation>
    </message>
    <message>
        <source>Zoom to</source>
        <translation>Zoomen auf</translation>
    </message>
    <message>
        <source>Select similar</source>
        <translation>Ähnliche auswählen</translation>
    </message>
    <message>
        <source>Isolate</source>
        <translation>Isolieren</translation>
    </message>
    <message>
        <source>Match</source>
        <translation>Übertragen</translation>
    </message>
    <message>
        <source>Copy properties between objects</source>
        <translation>Eigenschaften zwischen Objekten kopieren</translation>
    </message>
    <message>
        <source>Match properties</source>
        <translation>Eigenschaften übertragen</translation>
    </message>
    <message>
        <source>Reset all</source>
        <translation>Alles zurücksetzen</translation>
    </message>
    <message>
        <source>%1 refused: %2</source>
        <translation>%1 abgelehnt: %2</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Ja</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Nein</translation>
    </message>
    <message>
        <source>set to %1</source>
        <translation>auf %1 gesetzt</translation>
    </message>
    <message>
        <source>ran &quot;%1&quot;</source>
        <translation>„%1“ ausgeführt</translation>
    </message>
    <message>
        <source>%1 %2</source>
        <translation>%1 %2</translation>
    </message>
    <message>
        <source>ticked</source>
        <translation>angehakt</translation>
    </message>
    <message>
        <source>cleared</source>
        <translation>abgehakt</translation>
    </message>
    <message>
        <source>%1 set to %2</source>
        <translation>%1 auf %2 gesetzt</translation>
    </message>
    <message>
        <source>vertex %1 %2 set to %3</source>
        <translation>Scheitelpunkt %1 %2 auf %3 gesetzt</translation>
    </message>
</context>
<context>
    <name>SampleDrawing</name>
    <message>
        <source>NOTES:\P1. Break all sharp edges 0.5 x 45°.\P2. Material S235JR, 12 mm plate.</source>
        <translation>HINWEISE:\P1. Alle scharfen Kanten 0,5 x 45° brechen.\P2. Werkstoff S235JR, Blech 12 mm.</translation>
    </message>
    <message>
        <source>FLANGE PLATE</source>
        <translation>FLANSCHPLATTE</translation>
    </message>
    <message>
        <source>PW-0042</source>
        <translation>PW-0042</translation>
    </message>
    <message>
        <source>1:1</source>
        <translation>1:1</translation>
    </message>
    <message>
        <source>SIDE VIEW</source>
        <translation>SEITENANSICHT</translation>
    </message>
    <message>
        <source>Check the keyway against the shaft.</source>
        <translation>Passfedernut gegen die Welle prüfen.</translation>
    </message>
</context>
<context>
    <name>host_qt_ui</name>
    <message>
        <source>Red</source>
        <translation>Rot</translation>
    </message>
    <message>
        <source>Yellow</source>
        <translation>Gelb</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>Grün</translation>
    </message>
    <message>
        <source>Cyan</source>
        <translation>Cyan</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>Blau</translation>
    </message>
    <message>
        <source>Magenta</source>
        <translation>Magenta</translation>
    </message>
    <message>
        <source>White</source>
        <translation>Weiß</translation>
    </message>
    <message>
        <source>Closed filled</source>
        <translation>Geschlossen gefüllt</translation>
    </message>
    <message>
        <source>Closed blank</source>
        <translation>Geschlossen leer</translation>
    </message>
    <message>
        <source>Closed</source>
        <translation>Geschlossen</translation>
    </message>
    <message>
        <source>Dot</source>
        <translation>Punkt</translation>
    </message>
    <message>
        <source>Architectural tick</source>
        <translation>Architektonische Markierung</translation>
    </message>
    <message>
        <source>Oblique</source>
        <translation>Schräg</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Offen</translation>
    </message>
    <message>
        <source>Origin indicator</source>
        <translation>Ursprungsanzeiger</translation>
    </message>
    <message>
        <source>Origin indicator 2</source>
        <translation>Ursprungsanzeiger 2</translation>
    </message>
    <message>
        <source>Right angle</source>
        <translation>Rechter Winkel</translation>
    </message>
    <message>
        <source>Open 30</source>
        <translation>Offen 30</translation>
    </message>
    <message>
        <source>Dot small</source>
        <translation>Punkt klein</translation>
    </message>
    <message>
        <source>Dot blank</source>
        <translation>Punkt leer</translation>
    </message>
    <message>
        <source>Dot small blank</source>
        <translation>Punkt klein leer</translation>
    </message>
    <message>
        <source>Box</source>
        <translation>Kästchen</translation>
    </message>
    <message>
        <source>Box filled</source>
        <translation>Kästchen gefüllt</translation>
    </message>
    <message>
        <source>Datum triangle</source>
        <translation>Bezugsdreieck</translation>
    </message>
    <message>
        <source>Datum triangle filled</source>
        <translation>Bezugsdreieck gefüllt</translation>
    </message>
    <message>
        <source>Integral</source>
        <translation>Integral</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keine</translation>
    </message>
    <message>
        <source>User Arrow...</source>
        <translation>Benutzerpfeil...</translation>
    </message>
    <message>
        <source>Select Colour</source>
        <translation>Farbe wählen</translation>
    </message>
    <message>
        <source>True Colour...</source>
        <translation>Echtfarbe...</translation>
    </message>
    <message>
        <source>True Colour</source>
        <translation>Echtfarbe</translation>
    </message>
    <message>
        <source>Linetype</source>
        <translation>Linientyp</translation>
    </message>
    <message>
        <source>User Arrow</source>
        <translation>Benutzerpfeil</translation>
    </message>
    <message>
        <source>Select Colour...</source>
        <translation>Farbe wählen...</translation>
    </message>
    <message>
        <source>Other...</source>
        <translation>Andere...</translation>
    </message>
    <message>
        <source>ByLayer</source>
        <translation>VonLayer</translation>
    </message>
    <message>
        <source>ByBlock</source>
        <translation>VonBlock</translation>
    </message>
    <message>
        <source>Colour %1</source>
        <translation>Farbe %1</translation>
    </message>
    <message>
        <source>Default</source>
        <translation>Vorgabe</translation>
    </message>
    <message>
        <source>%1 mm</source>
        <translation>%1 mm</translation>
    </message>
</context>
<context>
    <name>host_qt_ui::QHostMessageBalloon</name>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Information</source>
        <translation>Information</translation>
    </message>
</context>
</TS>
