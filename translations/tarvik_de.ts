<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="en">
<context>
    <name>tcMainWindow</name>
    <message>
        <source>Not Connected</source>
        <translation>Nicht verbunden</translation>
    </message>
    <message>
        <source>Vexa Camera Link Control Panel %1</source>
        <translation>Vexa Camera-Link-Bedienfeld %1</translation>
    </message>
    <message>
        <source>Settings at %1</source>
        <translation>Einstellungen in %1</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Exit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
    <message>
        <source>About...</source>
        <translation>Über...</translation>
    </message>
    <message>
        <source>Logging to %1</source>
        <translation>Protokoll in %1</translation>
    </message>
    <message>
        <source>No settings</source>
        <translation>Keine Einstellungen</translation>
    </message>
    <message>
        <source>Vexa Tarvik&lt;ul&gt;&lt;li&gt;Version %1&lt;/li&gt;&lt;li&gt;VCS: %4&lt;/li&gt;&lt;li&gt;Built on %2&lt;/li&gt;&lt;li&gt;Built with &lt;a href=&quot;https://www.qt.io&quot;&gt;Qt %3&lt;/a&gt;&lt;/li&gt;&lt;/ul&gt;</source>
        <translation>Vexa Tarvik&lt;ul&gt;&lt;li&gt;Version %1&lt;/li&gt;&lt;li&gt;VCS: %4&lt;/li&gt;&lt;li&gt;Erstellt am %2&lt;/li&gt;&lt;li&gt;Erstellt mit &lt;a href=&quot;https://www.qt.io&quot;&gt;Qt %3&lt;/a&gt;&lt;/li&gt;&lt;/ul&gt;</translation>
    </message>
    <message>
        <source>Connected</source>
        <translation>Verbunden</translation>
    </message>
</context>
<context>
    <name>CamlinkControl</name>
    <message>
        <source>Form</source>
        <translation>Formular</translation>
    </message>
    <message>
        <source>Camera</source>
        <translation>Kamera</translation>
    </message>
    <message>
        <source>Port</source>
        <translation>Anschluss</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Open or close the port (Ctrl+O)</source>
        <translation>Anschluss öffnen oder schließen (Strg+O)</translation>
    </message>
</context>
<context>
    <name>StripChart</name>
    <message>
        <source>Trend Chart</source>
        <translation>Trendschreiber</translation>
    </message>
    <message>
        <source>Items</source>
        <translation>Kurven</translation>
    </message>
    <message>
        <source>Axes</source>
        <translation>Achsen</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>Links</translation>
    </message>
    <message>
        <source>Min</source>
        <translation>Min</translation>
    </message>
    <message>
        <source>Max</source>
        <translation>Max</translation>
    </message>
    <message>
        <source>Set Y extents based on displayed curves</source>
        <translation>Y-Grenzen nach den gezeigten Kurven setzen</translation>
    </message>
    <message>
        <source>AutoScale</source>
        <translation>Automatisch</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Rechts</translation>
    </message>
    <message>
        <source>Set Y2 extents based on displayed curves</source>
        <translation>Y2-Grenzen nach den gezeigten Kurven setzen</translation>
    </message>
    <message>
        <source>X Axis</source>
        <translation>X-Achse</translation>
    </message>
    <message>
        <source>Span(s)</source>
        <translation>Spanne (s)</translation>
    </message>
    <message>
        <source>Samples</source>
        <translation>Messwerte</translation>
    </message>
    <message>
        <source>Set X extents based on displayed curves</source>
        <translation>X-Grenzen nach den gezeigten Kurven setzen</translation>
    </message>
    <message>
        <source>show milliseconds on X (time) axis</source>
        <translation>Millisekunden an der X-Achse (Zeit) zeigen</translation>
    </message>
    <message>
        <source>Show X ms</source>
        <translation>ms an X zeigen</translation>
    </message>
    <message>
        <source>Show X Axis</source>
        <translation>X-Achse zeigen</translation>
    </message>
    <message>
        <source>Copy the limits of the axes into the boxes</source>
        <translation>Die Grenzen der Achsen in die Felder übernehmen</translation>
    </message>
    <message>
        <source>get Y limits</source>
        <translation>Y-Grenzen holen</translation>
    </message>
    <message>
        <source>Reset and clear all samples from plot</source>
        <translation>Alle Messwerte aus dem Schreiber löschen</translation>
    </message>
    <message>
        <source>Clear Samples</source>
        <translation>Messwerte löschen</translation>
    </message>
    <message>
        <source>Markers...</source>
        <translation>Marken...</translation>
    </message>
    <message>
        <source>Save data to a CSV file...</source>
        <translation>Daten in eine CSV-Datei speichern...</translation>
    </message>
    <message>
        <source>Save to File...</source>
        <translation>In Datei speichern...</translation>
    </message>
    <message>
        <source>Grid</source>
        <translation>Gitter</translation>
    </message>
    <message>
        <source>Show/Hide the grid</source>
        <translation>Gitter zeigen oder verbergen</translation>
    </message>
    <message>
        <source>Zoom Out</source>
        <translation>Verkleinern</translation>
    </message>
    <message>
        <source>AutoScale Y</source>
        <translation>Y automatisch skalieren</translation>
    </message>
    <message>
        <source>Minor Grid</source>
        <translation>Feines Gitter</translation>
    </message>
    <message>
        <source>Show the grid minor ticks</source>
        <translation>Zwischenlinien des Gitters zeigen</translation>
    </message>
    <message>
        <source>Pause Updates</source>
        <translation>Anzeige anhalten</translation>
    </message>
    <message>
        <source>Pause plot updates</source>
        <translation>Das Fortschreiben der Anzeige anhalten</translation>
    </message>
    <message>
        <source>Show ms</source>
        <translation>ms zeigen</translation>
    </message>
    <message>
        <source>Show Left Panel</source>
        <translation>Linke Leiste zeigen</translation>
    </message>
    <message>
        <source>Show Left Panel controls</source>
        <translation>Bedienelemente der linken Leiste zeigen</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Show Min Max Markers</source>
        <translation>Min/Max-Marken zeigen</translation>
    </message>
    <message>
        <source>Show Markers at Min and Max Y values</source>
        <translation>Marken am kleinsten und am größten Y-Wert zeigen</translation>
    </message>
    <message>
        <source>AutoScale X</source>
        <translation>X automatisch skalieren</translation>
    </message>
    <message>
        <source>Reset Min/Max</source>
        <translation>Min/Max zurücksetzen</translation>
    </message>
    <message>
        <source>Reset the Min/Max values</source>
        <translation>Die Min/Max-Werte zurücksetzen</translation>
    </message>
    <message>
        <source>AutoScale Y2</source>
        <translation>Y2 automatisch skalieren</translation>
    </message>
    <message>
        <source>Load from File</source>
        <translation>Aus Datei laden</translation>
    </message>
    <message>
        <source>Load data from a CSV file</source>
        <translation>Daten aus einer CSV-Datei laden</translation>
    </message>
    <message>
        <source>Resume Feed</source>
        <translation>Weiterschreiben</translation>
    </message>
    <message>
        <source>Go back to live updates</source>
        <translation>Zur laufenden Anzeige zurückkehren</translation>
    </message>
    <message>
        <source>Markers</source>
        <translation>Marken</translation>
    </message>
    <message>
        <source>Left minimum</source>
        <translation>Minimum links</translation>
    </message>
    <message>
        <source>Left maximum</source>
        <translation>Maximum links</translation>
    </message>
    <message>
        <source>Right minimum</source>
        <translation>Minimum rechts</translation>
    </message>
    <message>
        <source>Right maximum</source>
        <translation>Maximum rechts</translation>
    </message>
</context>
<context>
    <name>VexaK40</name>
    <message>
        <source>Vexa-K40</source>
        <translation>Vexa-K40</translation>
    </message>
    <message>
        <source>Preset</source>
        <translation>Vorgabe</translation>
    </message>
    <message>
        <source>Send preset</source>
        <translation>Vorgabe senden</translation>
    </message>
    <message>
        <source>Send</source>
        <translation>Senden</translation>
    </message>
    <message>
        <source>Send custom preset file</source>
        <translation>Eigene Vorgabedatei senden</translation>
    </message>
    <message>
        <source>Send Custom</source>
        <translation>Datei senden</translation>
    </message>
    <message>
        <source>Timing</source>
        <translation>Zeiten</translation>
    </message>
    <message>
        <source>Exposure Time [ms]</source>
        <translation>Belichtungszeit [ms]</translation>
    </message>
    <message>
        <source>Exposure time in milliseconds.</source>
        <translation>Belichtungszeit in Millisekunden.</translation>
    </message>
    <message>
        <source>Frame Interval Time [ms] </source>
        <translation>Bildabstand [ms] </translation>
    </message>
    <message>
        <source>For multiframe reads, specifies the interval between capture cycles.</source>
        <translation>Abstand zwischen den Aufnahmen beim Auslesen mehrerer Bilder.</translation>
    </message>
    <message>
        <source>ROI</source>
        <translation>Bildbereich</translation>
    </message>
    <message>
        <source>Single ROI</source>
        <translation>Ein Bildbereich</translation>
    </message>
    <message>
        <source>Multi-ROI</source>
        <translation>Mehrere Bildbereiche</translation>
    </message>
    <message>
        <source>Regions</source>
        <translation>Bereiche</translation>
    </message>
    <message>
        <source>Region</source>
        <translation>Bereich</translation>
    </message>
    <message>
        <source>Start Col</source>
        <translation>Erste Spalte</translation>
    </message>
    <message>
        <source>Start Row for area readout capture.</source>
        <translation>Erste Zeile des ausgelesenen Bereichs.</translation>
    </message>
    <message>
        <source>End Row for area readout capture.</source>
        <translation>Letzte Zeile des ausgelesenen Bereichs.</translation>
    </message>
    <message>
        <source>End column for area readout capture.</source>
        <translation>Letzte Spalte des ausgelesenen Bereichs.</translation>
    </message>
    <message>
        <source>start column for area readout capture.</source>
        <translation>Erste Spalte des ausgelesenen Bereichs.</translation>
    </message>
    <message>
        <source>End Row</source>
        <translation>Letzte Zeile</translation>
    </message>
    <message>
        <source>Start Row</source>
        <translation>Erste Zeile</translation>
    </message>
    <message>
        <source>End Col</source>
        <translation>Letzte Spalte</translation>
    </message>
    <message>
        <source>Command examples</source>
        <translation>Befehlsbeispiele</translation>
    </message>
    <message>
        <source>Start acquisition</source>
        <translation>Aufnahme starten</translation>
    </message>
    <message>
        <source>START</source>
        <translation>START</translation>
    </message>
    <message>
        <source>Stop acquisition</source>
        <translation>Aufnahme anhalten</translation>
    </message>
    <message>
        <source>STOP</source>
        <translation>STOP</translation>
    </message>
    <message>
        <source>Command</source>
        <translation>Befehl</translation>
    </message>
    <message>
        <source>Send command</source>
        <translation>Befehl senden</translation>
    </message>
    <message>
        <source>Handle the command text as received</source>
        <translation>Den Befehlstext wie Empfangenes behandeln</translation>
    </message>
    <message>
        <source>RX</source>
        <translation>RX</translation>
    </message>
    <message>
        <source>Keep Alive</source>
        <translation>Verbindung überwachen</translation>
    </message>
    <message>
        <source>Receive lamp</source>
        <translation>Empfangslampe</translation>
    </message>
    <message>
        <source>Clear log and received bytes</source>
        <translation>Protokoll und empfangene Bytes löschen</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Leeren</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>Log</source>
        <translation>Protokoll</translation>
    </message>
    <message>
        <source>Hex</source>
        <translation>Hex</translation>
    </message>
    <message>
        <source>Received bytes</source>
        <translation>Empfangene Bytes</translation>
    </message>
    <message>
        <source>Received data</source>
        <translation>Empfangene Daten</translation>
    </message>
    <message>
        <source>Last reply</source>
        <translation>Letzte Antwort</translation>
    </message>
    <message>
        <source>Sensors to plot</source>
        <translation>Aufzuzeichnende Messstellen</translation>
    </message>
    <message>
        <source>Plot Sensors</source>
        <translation>Aufzeichnen</translation>
    </message>
    <message>
        <source>Poll period</source>
        <translation>Abfrageabstand</translation>
    </message>
    <message>
        <source> sec</source>
        <translation> s</translation>
    </message>
    <message>
        <source>Every </source>
        <translation>Alle </translation>
    </message>
    <message>
        <source>Simulate sensors</source>
        <translation>Messstellen simulieren</translation>
    </message>
    <message>
        <source>Sim</source>
        <translation>Sim</translation>
    </message>
    <message>
        <source>Add Sensor</source>
        <translation>Messstelle hinzufügen</translation>
    </message>
    <message>
        <source>Start acquisition (Ctrl+G)</source>
        <translation>Aufnahme starten (Strg+G)</translation>
    </message>
    <message>
        <source>Ctrl+G</source>
        <translation>Ctrl+G</translation>
    </message>
    <message>
        <source>Stop acquisition (Ctrl+.)</source>
        <translation>Aufnahme anhalten (Strg+.)</translation>
    </message>
    <message>
        <source>Ctrl+.</source>
        <translation>Ctrl+.</translation>
    </message>
    <message>
        <source>Send the command (Ctrl+Return)</source>
        <translation>Befehl senden (Strg+Eingabe)</translation>
    </message>
    <message>
        <source>Ctrl+Return</source>
        <translation>Ctrl+Return</translation>
    </message>
    <message>
        <source>Clear the views (Ctrl+L)</source>
        <translation>Ansichten leeren (Strg+L)</translation>
    </message>
    <message>
        <source>Ctrl+L</source>
        <translation>Ctrl+L</translation>
    </message>
    <message>
        <source>Ask the camera each second, and close the port after 5 seconds without data</source>
        <translation>Die Kamera jede Sekunde abfragen und den Anschluss nach 5 Sekunden ohne Daten schließen</translation>
    </message>
</context>
<context>
    <name>VexaR60</name>
    <message>
        <source>Vexa-R60</source>
        <translation>Vexa-R60</translation>
    </message>
    <message>
        <source>Preset</source>
        <translation>Vorgabe</translation>
    </message>
    <message>
        <source>Send</source>
        <translation>Senden</translation>
    </message>
    <message>
        <source>Send preset</source>
        <translation>Vorgabe senden</translation>
    </message>
    <message>
        <source>Send Custom</source>
        <translation>Datei senden</translation>
    </message>
    <message>
        <source>Send preset file</source>
        <translation>Vorgabedatei senden</translation>
    </message>
    <message>
        <source>Timing</source>
        <translation>Zeiten</translation>
    </message>
    <message>
        <source>Exposure Time [ms]</source>
        <translation>Belichtungszeit [ms]</translation>
    </message>
    <message>
        <source>Exposure time in milliseconds.</source>
        <translation>Belichtungszeit in Millisekunden.</translation>
    </message>
    <message>
        <source>Frame Interval Time [ms] </source>
        <translation>Bildabstand [ms] </translation>
    </message>
    <message>
        <source>For multiframe reads, specifies the interval between capture cycles.</source>
        <translation>Abstand zwischen den Aufnahmen beim Auslesen mehrerer Bilder.</translation>
    </message>
    <message>
        <source>ROI</source>
        <translation>Bildbereich</translation>
    </message>
    <message>
        <source>Start Row</source>
        <translation>Erste Zeile</translation>
    </message>
    <message>
        <source>Start Row for area readout capture.</source>
        <translation>Erste Zeile des ausgelesenen Bereichs.</translation>
    </message>
    <message>
        <source>End Row</source>
        <translation>Letzte Zeile</translation>
    </message>
    <message>
        <source>End Row for area readout capture.</source>
        <translation>Letzte Zeile des ausgelesenen Bereichs.</translation>
    </message>
    <message>
        <source>Start Col</source>
        <translation>Erste Spalte</translation>
    </message>
    <message>
        <source>start column for area readout capture.</source>
        <translation>Erste Spalte des ausgelesenen Bereichs.</translation>
    </message>
    <message>
        <source>End Col</source>
        <translation>Letzte Spalte</translation>
    </message>
    <message>
        <source>End column for area readout capture.</source>
        <translation>Letzte Spalte des ausgelesenen Bereichs.</translation>
    </message>
    <message>
        <source>Command</source>
        <translation>Befehl</translation>
    </message>
    <message>
        <source>Send command</source>
        <translation>Befehl senden</translation>
    </message>
    <message>
        <source>Replies</source>
        <translation>Antworten</translation>
    </message>
    <message>
        <source>Send the command (Ctrl+Return)</source>
        <translation>Befehl senden (Strg+Eingabe)</translation>
    </message>
    <message>
        <source>Ctrl+Return</source>
        <translation>Ctrl+Return</translation>
    </message>
</context>
<context>
    <name>VexaR70</name>
    <message>
        <source>Vexa-R70</source>
        <translation>Vexa-R70</translation>
    </message>
    <message>
        <source>Preset</source>
        <translation>Vorgabe</translation>
    </message>
    <message>
        <source>Send</source>
        <translation>Senden</translation>
    </message>
    <message>
        <source>Send preset</source>
        <translation>Vorgabe senden</translation>
    </message>
    <message>
        <source>Send Custom</source>
        <translation>Datei senden</translation>
    </message>
    <message>
        <source>Send preset file</source>
        <translation>Vorgabedatei senden</translation>
    </message>
    <message>
        <source>Timing</source>
        <translation>Zeiten</translation>
    </message>
    <message>
        <source>Exposure Time [ms]</source>
        <translation>Belichtungszeit [ms]</translation>
    </message>
    <message>
        <source>Exposure time in milliseconds.</source>
        <translation>Belichtungszeit in Millisekunden.</translation>
    </message>
    <message>
        <source>Frame Interval Time [ms] </source>
        <translation>Bildabstand [ms] </translation>
    </message>
    <message>
        <source>For multiframe reads, specifies the interval between capture cycles.</source>
        <translation>Abstand zwischen den Aufnahmen beim Auslesen mehrerer Bilder.</translation>
    </message>
    <message>
        <source>ROI</source>
        <translation>Bildbereich</translation>
    </message>
    <message>
        <source>Start Row</source>
        <translation>Erste Zeile</translation>
    </message>
    <message>
        <source>Start Row for area readout capture.</source>
        <translation>Erste Zeile des ausgelesenen Bereichs.</translation>
    </message>
    <message>
        <source>End Row</source>
        <translation>Letzte Zeile</translation>
    </message>
    <message>
        <source>End Row for area readout capture.</source>
        <translation>Letzte Zeile des ausgelesenen Bereichs.</translation>
    </message>
    <message>
        <source>Start Col</source>
        <translation>Erste Spalte</translation>
    </message>
    <message>
        <source>start column for area readout capture.</source>
        <translation>Erste Spalte des ausgelesenen Bereichs.</translation>
    </message>
    <message>
        <source>End Col</source>
        <translation>Letzte Spalte</translation>
    </message>
    <message>
        <source>End column for area readout capture.</source>
        <translation>Letzte Spalte des ausgelesenen Bereichs.</translation>
    </message>
    <message>
        <source>Command</source>
        <translation>Befehl</translation>
    </message>
    <message>
        <source>Send command</source>
        <translation>Befehl senden</translation>
    </message>
    <message>
        <source>Replies</source>
        <translation>Antworten</translation>
    </message>
    <message>
        <source>Send the command (Ctrl+Return)</source>
        <translation>Befehl senden (Strg+Eingabe)</translation>
    </message>
    <message>
        <source>Ctrl+Return</source>
        <translation>Ctrl+Return</translation>
    </message>
</context>
<context>
    <name>tcVexaK40</name>
    <message>
        <source>Get the camera version</source>
        <translation>Version der Kamera abfragen</translation>
    </message>
    <message>
        <source>Set the vertical binning factor to N</source>
        <translation>Vertikalen Binning-Faktor auf N setzen</translation>
    </message>
    <message>
        <source>Get the vertical binning factor</source>
        <translation>Vertikalen Binning-Faktor abfragen</translation>
    </message>
    <message>
        <source>Set the horizontal binning factor to N</source>
        <translation>Horizontalen Binning-Faktor auf N setzen</translation>
    </message>
    <message>
        <source>Get the horizontal binning factor</source>
        <translation>Horizontalen Binning-Faktor abfragen</translation>
    </message>
    <message>
        <source>Set the BitsPerPixel mode to M</source>
        <translation>Modus für Bits pro Pixel auf M setzen</translation>
    </message>
    <message>
        <source>Get the BitsPerPixel mode</source>
        <translation>Modus für Bits pro Pixel abfragen</translation>
    </message>
    <message>
        <source>Get the output mode</source>
        <translation>Ausgabemodus abfragen</translation>
    </message>
    <message>
        <source>Set the output mode to M</source>
        <translation>Ausgabemodus auf M setzen</translation>
    </message>
    <message>
        <source>Set the exposure time to us</source>
        <translation>Belichtungszeit auf us setzen</translation>
    </message>
    <message>
        <source>Get the exposure time</source>
        <translation>Belichtungszeit abfragen</translation>
    </message>
    <message>
        <source>Set the Frame Interval Time to us</source>
        <translation>Bildabstand auf us setzen</translation>
    </message>
    <message>
        <source>Get the Frame Interval Time</source>
        <translation>Bildabstand abfragen</translation>
    </message>
    <message>
        <source>Set the GPIO pin P direction (1=out)</source>
        <translation>Richtung des GPIO-Pins P setzen (1 = Ausgang)</translation>
    </message>
    <message>
        <source>Set the GPIO pin P mode [low (0), high (1), &quot;expose strobe&quot; (2)]</source>
        <translation>Modus des GPIO-Pins P setzen [low (0), high (1), „Belichtungsblitz“ (2)]</translation>
    </message>
    <message>
        <source>Get the state of all GPIO pins as a bitmask (0x00 through 0x07)</source>
        <translation>Zustand aller GPIO-Pins als Bitmaske abfragen (0x00 bis 0x07)</translation>
    </message>
    <message>
        <source>Get the value of a sensor register at address A</source>
        <translation>Wert des Sensorregisters an der Adresse A abfragen</translation>
    </message>
    <message>
        <source>Set the value of a sensor register at address A to value V</source>
        <translation>Sensorregister an der Adresse A auf den Wert V setzen</translation>
    </message>
    <message>
        <source>Reset the camera</source>
        <translation>Kamera zurücksetzen</translation>
    </message>
    <message>
        <source>Set the ROI to WxH at Column,Row</source>
        <translation>Bildbereich auf WxH ab Spalte,Zeile setzen</translation>
    </message>
    <message>
        <source>Get the ROI &lt;StartRow&gt;&lt;StartColumn&gt;&lt;Width&gt;&lt;Height&gt;</source>
        <translation>Bildbereich abfragen &lt;Erste Zeile&gt;&lt;Erste Spalte&gt;&lt;Breite&gt;&lt;Höhe&gt;</translation>
    </message>
    <message>
        <source>Get the ROI at index I</source>
        <translation>Bildbereich mit dem Index I abfragen</translation>
    </message>
    <message>
        <source>Set the ROI at index I to WxH at X,Y</source>
        <translation>Bildbereich mit dem Index I auf WxH ab X,Y setzen</translation>
    </message>
    <message>
        <source>Get the number of ROIs supported</source>
        <translation>Anzahl der möglichen Bildbereiche abfragen</translation>
    </message>
    <message>
        <source>Set the number of ROIs to N</source>
        <translation>Anzahl der Bildbereiche auf N setzen</translation>
    </message>
    <message>
        <source>Start acquisition</source>
        <translation>Aufnahme starten</translation>
    </message>
    <message>
        <source>Stop Acquisition</source>
        <translation>Aufnahme anhalten</translation>
    </message>
    <message>
        <source>Test pattern control [0 = OFF, 1 = Sensor, 2 = FPGA]</source>
        <translation>Testbild [0 = AUS, 1 = Sensor, 2 = FPGA]</translation>
    </message>
    <message>
        <source>Set the trigger mode for the camera [0=Internally triggered free-run, 1=External trigger on CamIO 0]</source>
        <translation>Auslösung der Kamera setzen [0 = frei laufend, innen ausgelöst, 1 = von außen an CamIO 0]</translation>
    </message>
    <message>
        <source>Get the temperature of the sensor [0-ALL]</source>
        <translation>Temperatur des Sensors abfragen [0 = ALLE]</translation>
    </message>
    <message>
        <source>Turn the cooliung fan on / off (if applicable) [0=OFF, 1=ON]</source>
        <translation>Lüfter ein- oder ausschalten, falls vorhanden [0 = AUS, 1 = EIN]</translation>
    </message>
    <message>
        <source>Set Flip X state [1=Flip]</source>
        <translation>Spiegelung in X setzen [1 = gespiegelt]</translation>
    </message>
    <message>
        <source>Get Flip X state [1=Flip]</source>
        <translation>Spiegelung in X abfragen [1 = gespiegelt]</translation>
    </message>
    <message>
        <source>Set Flip Y state [1=Flip]</source>
        <translation>Spiegelung in Y setzen [1 = gespiegelt]</translation>
    </message>
    <message>
        <source>Get Flip Y state [1=Flip]</source>
        <translation>Spiegelung in Y abfragen [1 = gespiegelt]</translation>
    </message>
    <message>
        <source>Set current SCLK frequency to the sensor [see docs]</source>
        <translation>SCLK-Frequenz des Sensors setzen [siehe Handbuch]</translation>
    </message>
    <message>
        <source>Get current SCLK frequency of the sensor</source>
        <translation>SCLK-Frequenz des Sensors abfragen</translation>
    </message>
    <message>
        <source>Error %d setting baudrate on COM port!
</source>
        <translation>Fehler %d beim Setzen der Baudrate am COM-Anschluss!
</translation>
    </message>
    <message>
        <source>Port opened [%1] BR set to %2
</source>
        <translation>Anschluss geöffnet [%1], Baudrate auf %2 gesetzt
</translation>
    </message>
    <message>
        <source>Custom Preset File</source>
        <translation>Eigene Vorgabedatei</translation>
    </message>
    <message>
        <source>preset files (*.txt)</source>
        <translation>Vorgabedateien (*.txt)</translation>
    </message>
    <message>
        <source>Timeout .. no data from camera in &gt; 5 seconds... closing connection</source>
        <translation>Zeitüberschreitung .. seit über 5 Sekunden keine Daten von der Kamera ... die Verbindung wird geschlossen</translation>
    </message>
    <message>
        <source>Setpoint: </source>
        <translation>Sollwert: </translation>
    </message>
</context>
<context>
    <name>tcSensorMonitor</name>
    <message>
        <source>Sensor Temperature</source>
        <translation>Sensortemperatur</translation>
    </message>
    <message>
        <source>Board Temperature</source>
        <translation>Platinentemperatur</translation>
    </message>
    <message>
        <source>Thermistor Temperature</source>
        <translation>Thermistortemperatur</translation>
    </message>
    <message>
        <source>Ambient Temperature</source>
        <translation>Umgebungstemperatur</translation>
    </message>
    <message>
        <source>Relative Humidity</source>
        <translation>Relative Feuchte</translation>
    </message>
    <message>
        <source>TEC Drive current</source>
        <translation>TEC-Strom</translation>
    </message>
    <message>
        <source>TEC Voltage</source>
        <translation>TEC-Spannung</translation>
    </message>
    <message>
        <source>IVRESH</source>
        <translation>IVRESH</translation>
    </message>
    <message>
        <source>I3P3V</source>
        <translation>I3P3V</translation>
    </message>
    <message>
        <source>I3P0V</source>
        <translation>I3P0V</translation>
    </message>
    <message>
        <source>I2P0V</source>
        <translation>I2P0V</translation>
    </message>
    <message>
        <source>2P1V</source>
        <translation>2P1V</translation>
    </message>
    <message>
        <source>3V3RESH</source>
        <translation>3V3RESH</translation>
    </message>
    <message>
        <source>3P0V</source>
        <translation>3P0V</translation>
    </message>
    <message>
        <source>3P3V</source>
        <translation>3P3V</translation>
    </message>
    <message>
        <source>Sensors</source>
        <translation>Messstellen</translation>
    </message>
    <message>
        <source>Set Point</source>
        <translation>Sollwert</translation>
    </message>
    <message>
        <source>Data Sources...</source>
        <translation>Datenquellen...</translation>
    </message>
    <message>
        <source>Add Sensor</source>
        <translation>Messstelle hinzufügen</translation>
    </message>
    <message>
        <source>Select COM port</source>
        <translation>COM-Anschluss wählen</translation>
    </message>
</context>
<context>
    <name>tcCamlinkControl</name>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>tcSerialLink</name>
    <message>
        <source>Unknown error code %1</source>
        <translation>Unbekannter Fehlercode %1</translation>
    </message>
</context>
<context>
    <name>tcSessionControl</name>
    <message>
        <source>Log session to file...</source>
        <translation>Sitzung in Datei protokollieren...</translation>
    </message>
    <message>
        <source>Log Session To</source>
        <translation>Sitzung protokollieren in</translation>
    </message>
    <message>
        <source>log files (*.log *.txt);; All files (*)</source>
        <translation>Protokolldateien (*.log *.txt);; Alle Dateien (*)</translation>
    </message>
    <message>
        <source>open: %1</source>
        <translation>geöffnet: %1</translation>
    </message>
    <message>
        <source>closed: %1</source>
        <translation>geschlossen: %1</translation>
    </message>
</context>
<context>
    <name>tcSessionLog</name>
    <message>
        <source>Unable to log to %1: %2</source>
        <translation>Protokollieren in %1 nicht möglich: %2</translation>
    </message>
    <message>
        <source>log started</source>
        <translation>Protokoll begonnen</translation>
    </message>
    <message>
        <source>log ended</source>
        <translation>Protokoll beendet</translation>
    </message>
    <message>
        <source>the line refused it with status %1</source>
        <translation>von der Leitung abgewiesen, Status %1</translation>
    </message>
    <message>
        <source>%1 bytes of log are missing here</source>
        <translation>hier fehlen %1 Bytes des Protokolls</translation>
    </message>
    <message>
        <source>%1 was gone and is begun anew</source>
        <translation>%1 war nicht mehr da und ist neu begonnen</translation>
    </message>
    <message>
        <source>not a regular file</source>
        <translation>keine gewöhnliche Datei</translation>
    </message>
</context>
<context>
    <name>tcOmegaMonWorker</name>
    <message>
        <source>Bad read: %1</source>
        <translation>Unbrauchbare Antwort: %1</translation>
    </message>
    <message>
        <source>Error %1 polling %2</source>
        <translation>Fehler %1 beim Abfragen von %2</translation>
    </message>
    <message>
        <source>Error %1 opening %2</source>
        <translation>Fehler %1 beim Öffnen von %2</translation>
    </message>
    <message>
        <source>Bad write: %1/3 bytes [%2]</source>
        <translation>Unvollständig geschrieben: %1/3 Bytes [%2]</translation>
    </message>
    <message>
        <source>device gone</source>
        <translation>„Gerät fort“</translation>
    </message>
</context>
<context>
    <name>tcAxisChooser</name>
    <message>
        <source>Assign Axis</source>
        <translation>Achse zuordnen</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>Links</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Rechts</translation>
    </message>
</context>
<context>
    <name>tcChartMenu</name>
    <message>
        <source>Assign Axis...</source>
        <translation>Achse zuordnen...</translation>
    </message>
    <message>
        <source>Add marker here</source>
        <translation>Hier eine Marke setzen</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Save PNG</source>
        <translation>Als PNG speichern</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Zurücksetzen</translation>
    </message>
</context>
<context>
    <name>tcLegendControl</name>
    <message>
        <source>Hide all</source>
        <translation>Alle verbergen</translation>
    </message>
    <message>
        <source>Show all</source>
        <translation>Alle zeigen</translation>
    </message>
    <message>
        <source>Hide all except %1</source>
        <translation>Alle außer %1 verbergen</translation>
    </message>
    <message>
        <source>Show Min/Max markers for %1</source>
        <translation>Min/Max-Marken für %1 zeigen</translation>
    </message>
    <message>
        <source>Reset Min/Max markers for %1</source>
        <translation>Min/Max-Marken für %1 zurücksetzen</translation>
    </message>
    <message>
        <source>Autoscale for %1</source>
        <translation>Für %1 automatisch skalieren</translation>
    </message>
    <message>
        <source>Rename %1</source>
        <translation>%1 umbenennen</translation>
    </message>
    <message>
        <source>Curve Title:</source>
        <translation>Name der Kurve:</translation>
    </message>
</context>
<context>
    <name>tcLegendLabel</name>
    <message>
        <source>Outside its limits</source>
        <translation>Außerhalb der Grenzwerte</translation>
    </message>
</context>
<context>
    <name>tcMarkerInfo</name>
    <message>
        <source>Markers</source>
        <translation>Marken</translation>
    </message>
    <message>
        <source>at %1</source>
        <translation>bei %1</translation>
    </message>
</context>
<context>
    <name>tcMarkerTable</name>
    <message>
        <source>Marker Text:</source>
        <translation>Text der Marke:</translation>
    </message>
    <message>
        <source>Delete Marker &quot;%1&quot;</source>
        <translation>Marke „%1“ löschen</translation>
    </message>
</context>
<context>
    <name>tcStripChart</name>
    <message>
        <source>Log Data...</source>
        <translation>Daten protokollieren...</translation>
    </message>
    <message>
        <source>Chart</source>
        <translation>Schreiber</translation>
    </message>
    <message>
        <source>Trend Chart:</source>
        <translation>Trendschreiber:</translation>
    </message>
    <message>
        <source> + %1 more</source>
        <translation> + %1 weitere</translation>
    </message>
    <message>
        <source>- logging to %1</source>
        <translation> - Protokoll in %1</translation>
    </message>
</context>
<context>
    <name>tcFindBar</name>
    <message>
        <source>Find</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Find previous (Shift+F3)</source>
        <translation>Vorige Fundstelle (Umschalt+F3)</translation>
    </message>
    <message>
        <source>Find next (F3)</source>
        <translation>Nächste Fundstelle (F3)</translation>
    </message>
    <message>
        <source>Not found</source>
        <translation>Nicht gefunden</translation>
    </message>
</context>
<context>
    <name>tcReplyView</name>
    <message>
        <source>Copy All</source>
        <translation>Alles kopieren</translation>
    </message>
    <message>
        <source>Save Text As...</source>
        <translation>Text speichern unter...</translation>
    </message>
    <message>
        <source>Find...</source>
        <translation>Suchen...</translation>
    </message>
    <message>
        <source>Find Next</source>
        <translation>Weitersuchen</translation>
    </message>
    <message>
        <source>Find Previous</source>
        <translation>Rückwärts suchen</translation>
    </message>
    <message>
        <source>Save Text As</source>
        <translation>Text speichern unter</translation>
    </message>
    <message>
        <source>text files (*.txt);; All files (*)</source>
        <translation>Textdateien (*.txt);; Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Error trying to save
%1</source>
        <translation>Fehler beim Speichern von
%1</translation>
    </message>
</context>
<context>
    <name>tcChartFiles</name>
    <message>
        <source>Select File to save data to...</source>
        <translation>Datei zum Speichern der Daten wählen...</translation>
    </message>
    <message>
        <source>csv files (*.csv);; Text file (*.txt)</source>
        <translation>CSV-Dateien (*.csv);; Textdatei (*.txt)</translation>
    </message>
    <message>
        <source>Saving %1</source>
        <translation>%1 wird gespeichert</translation>
    </message>
    <message>
        <source>Error trying to save
%1</source>
        <translation>Fehler beim Speichern von
%1</translation>
    </message>
    <message>
        <source>Select CSV File to load data from...</source>
        <translation>CSV-Datei zum Laden der Daten wählen...</translation>
    </message>
    <message>
        <source>csv files (*.csv)</source>
        <translation>CSV-Dateien (*.csv)</translation>
    </message>
    <message>
        <source>Error trying to load
%1</source>
        <translation>Fehler beim Laden von
%1</translation>
    </message>
    <message>
        <source>Loading %1</source>
        <translation>%1 wird geladen</translation>
    </message>
    <message>
        <source>Unable to load file.. not enough columns</source>
        <translation>Die Datei kann nicht geladen werden .. zu wenige Spalten</translation>
    </message>
    <message>
        <source>From: %1</source>
        <translation> - Aus: %1</translation>
    </message>
    <message>
        <source>Select File to save chart to...</source>
        <translation>Datei zum Speichern des Schreibers wählen...</translation>
    </message>
    <message>
        <source>PNG image file (*.png)</source>
        <translation>PNG-Bilddatei (*.png)</translation>
    </message>
</context>
<context>
    <name>tcChartLog</name>
    <message>
        <source>Select File to save data to...</source>
        <translation>Datei zum Speichern der Daten wählen...</translation>
    </message>
    <message>
        <source>csv files (*.csv);; Text file (*.txt)</source>
        <translation>CSV-Dateien (*.csv);; Textdatei (*.txt)</translation>
    </message>
    <message>
        <source>- Unable to open %1</source>
        <translation> - %1 kann nicht geöffnet werden</translation>
    </message>
    <message>
        <source>Log Duration</source>
        <translation>Dauer des Protokolls</translation>
    </message>
    <message>
        <source>Minutes (0 = forever):</source>
        <translation>Minuten (0 = ohne Ende):</translation>
    </message>
    <message>
        <source> - End: %1</source>
        <translation> - Ende: %1</translation>
    </message>
    <message>
        <source>- Unable to write %1</source>
        <translation> - %1 kann nicht geschrieben werden</translation>
    </message>
</context>
<context>
    <name>tcChartExport</name>
    <message>
        <source>There is no visible curve to export.</source>
        <translation>Es gibt keine sichtbare Kurve zum Exportieren.</translation>
    </message>
    <message>
        <source>Select File to export data to...</source>
        <translation>Datei zum Exportieren der Daten wählen...</translation>
    </message>
    <message>
        <source>csv files (*.csv)</source>
        <translation>CSV-Dateien (*.csv)</translation>
    </message>
    <message>
        <source>Error trying to save
%1</source>
        <translation>Fehler beim Speichern von
%1</translation>
    </message>
    <message>
        <source>Saving %1</source>
        <translation>%1 wird gespeichert</translation>
    </message>
</context>
<context>
    <name>tcChartReplay</name>
    <message>
        <source>Replay File...</source>
        <translation>Datei wiedergeben...</translation>
    </message>
    <message>
        <source>Select CSV File to replay...</source>
        <translation>CSV-Datei zum Wiedergeben wählen...</translation>
    </message>
    <message>
        <source>csv files (*.csv)</source>
        <translation>CSV-Dateien (*.csv)</translation>
    </message>
    <message>
        <source>Replay File</source>
        <translation>Datei wiedergeben</translation>
    </message>
    <message>
        <source>Speed (1 = as recorded):</source>
        <translation>Geschwindigkeit (1 = wie aufgezeichnet):</translation>
    </message>
    <message>
        <source>Error trying to load
%1</source>
        <translation>Fehler beim Laden von
%1</translation>
    </message>
    <message>
        <source> - Replay: %1, %2x</source>
        <translation> - Wiedergabe: %1, %2x</translation>
    </message>
    <message>
        <source>Loading %1</source>
        <translation>%1 wird geladen</translation>
    </message>
    <message>
        <source>Unable to load file.. not enough columns</source>
        <translation>Die Datei kann nicht geladen werden .. zu wenige Spalten</translation>
    </message>
</context>
<context>
    <name>tcFileTools</name>
    <message>
        <source>Data Files</source>
        <translation>Datendateien</translation>
    </message>
    <message>
        <source>Export Visible Range...</source>
        <translation>Sichtbaren Bereich exportieren...</translation>
    </message>
</context>
<context>
    <name>tcRecentFiles</name>
    <message>
        <source>Recent Files</source>
        <translation>Zuletzt verwendete Dateien</translation>
    </message>
    <message>
        <source>No Files Yet</source>
        <translation>Noch keine Dateien</translation>
    </message>
    <message>
        <source>This file is no longer there and was taken off the list:
%1</source>
        <translation>Diese Datei gibt es nicht mehr. Sie wurde aus der Liste entfernt:
%1</translation>
    </message>
</context>
<context>
    <name>tcSkippedRows</name>
    <message>
        <source>Skipped Rows...</source>
        <translation>Übersprungene Zeilen...</translation>
    </message>
    <message>
        <source>Skipped Rows</source>
        <translation>Übersprungene Zeilen</translation>
    </message>
    <message>
        <source>Line</source>
        <translation>Zeile</translation>
    </message>
    <message>
        <source>Reason</source>
        <translation>Grund</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>Row has no value</source>
        <translation>Zeile ohne Wert</translation>
    </message>
    <message>
        <source>Row has no time stamp</source>
        <translation>Zeile ohne Zeitstempel</translation>
    </message>
    <message>
        <source>Field is no number</source>
        <translation>Feld ist keine Zahl</translation>
    </message>
    <message>
        <source>Field beyond the last column</source>
        <translation>Feld hinter der letzten Spalte</translation>
    </message>
    <message>
        <source>Marker has no time or value</source>
        <translation>Marke ohne Zeit oder Wert</translation>
    </message>
    <message>
        <source>More markers than a chart shows</source>
        <translation>Mehr Marken, als ein Schreiber zeigt</translation>
    </message>
    <message>
        <source>Skipped: rows %1, fields %2, markers %3. Rows read: %4.</source>
        <translation>Übersprungen: Zeilen %1, Felder %2, Marken %3. Gelesene Zeilen: %4.</translation>
    </message>
    <message>
        <source>The first %1 are listed.</source>
        <translation>Aufgeführt sind die ersten %1.</translation>
    </message>
</context>
<context>
    <name>tcChartActions</name>
    <message>
        <source>Measure</source>
        <translation>Messen</translation>
    </message>
    <message>
        <source>Follow</source>
        <translation>Folgen</translation>
    </message>
    <message>
        <source>Measuring Cursors</source>
        <translation>Messcursor</translation>
    </message>
    <message>
        <source>Statistics...</source>
        <translation>Statistik...</translation>
    </message>
    <message>
        <source>Limits...</source>
        <translation>Grenzwerte...</translation>
    </message>
</context>
<context>
    <name>tcCursorItem</name>
    <message>
        <source>%1/min</source>
        <translation>%1/min</translation>
    </message>
</context>
<context>
    <name>tcLimitAlarm</name>
    <message>
        <source>%1: %2 is above the upper limit of %3, at %4</source>
        <translation>%1: %2 liegt über dem oberen Grenzwert von %3, um %4</translation>
    </message>
    <message>
        <source>%1: %2 is below the lower limit of %3, at %4</source>
        <translation>%1: %2 liegt unter dem unteren Grenzwert von %3, um %4</translation>
    </message>
    <message>
        <source>%1: %2 is within its limits again, at %3</source>
        <translation>%1: %2 liegt wieder innerhalb der Grenzwerte, um %3</translation>
    </message>
</context>
<context>
    <name>tcLimitsDialog</name>
    <message>
        <source>Limits</source>
        <translation>Grenzwerte</translation>
    </message>
    <message>
        <source>Curve</source>
        <translation>Kurve</translation>
    </message>
    <message>
        <source>Lower</source>
        <translation>Unterer</translation>
    </message>
    <message>
        <source>Upper</source>
        <translation>Oberer</translation>
    </message>
    <message>
        <source>Hysteresis</source>
        <translation>Hysterese</translation>
    </message>
    <message>
        <source>Sound the bell when a reading leaves its limits</source>
        <translation>Signalton, wenn ein Messwert seine Grenzwerte verlässt</translation>
    </message>
    <message>
        <source>Watch the lower limit of %1</source>
        <translation>Unteren Grenzwert von %1 überwachen</translation>
    </message>
    <message>
        <source>Lower limit of %1</source>
        <translation>Unterer Grenzwert von %1</translation>
    </message>
    <message>
        <source>Watch the upper limit of %1</source>
        <translation>Oberen Grenzwert von %1 überwachen</translation>
    </message>
    <message>
        <source>Upper limit of %1</source>
        <translation>Oberer Grenzwert von %1</translation>
    </message>
    <message>
        <source>Hysteresis of %1</source>
        <translation>Hysterese von %1</translation>
    </message>
    <message>
        <source>How far a reading must come back to count as within limits</source>
        <translation>Wie weit ein Messwert zurückkommen muss, um wieder innerhalb der Grenzwerte zu gelten</translation>
    </message>
</context>
<context>
    <name>tcStatisticsDialog</name>
    <message>
        <source>Statistics</source>
        <translation>Statistik</translation>
    </message>
    <message>
        <source>Visible range</source>
        <translation>Sichtbarer Bereich</translation>
    </message>
    <message>
        <source>Between the cursors</source>
        <translation>Zwischen den Cursorn</translation>
    </message>
    <message>
        <source>Range</source>
        <translation>Bereich</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Copy the table as text, its columns parted by tabs</source>
        <translation>Die Tabelle als Text kopieren, Spalten durch Tabulatoren getrennt</translation>
    </message>
    <message>
        <source>Curve</source>
        <translation>Kurve</translation>
    </message>
    <message>
        <source>Count</source>
        <translation>Anzahl</translation>
    </message>
    <message>
        <source>Smallest</source>
        <translation>Kleinster</translation>
    </message>
    <message>
        <source>Largest</source>
        <translation>Größter</translation>
    </message>
    <message>
        <source>Mean</source>
        <translation>Mittelwert</translation>
    </message>
    <message>
        <source>Std. deviation</source>
        <translation>Standardabw.</translation>
    </message>
    <message>
        <source>Slope/min</source>
        <translation>Steigung/min</translation>
    </message>
    <message>
        <source>%1 to %2 (%3)</source>
        <translation>%1 bis %2 (%3)</translation>
    </message>
</context>
<context>
    <name>tcBasicPanel</name>
    <message>
        <source>Unable to set baud rate!</source>
        <translation>Baudrate lässt sich nicht setzen!</translation>
    </message>
    <message>
        <source>Custom Preset File</source>
        <translation>Eigene Vorgabedatei</translation>
    </message>
    <message>
        <source>preset files (*.txt)</source>
        <translation>Vorgabedateien (*.txt)</translation>
    </message>
</context>
</TS>
