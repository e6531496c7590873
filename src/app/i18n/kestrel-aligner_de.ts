<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="en">
<context>
    <name>BinList</name>
    <message>
        <source>Devices and recordings</source>
        <translation>Geräte und Aufnahmen</translation>
    </message>
</context>
<context>
    <name>BinRow</name>
    <message numerus="yes">
        <source>%n clip(s)</source>
        <translation>
            <numerusform>%n Clip</numerusform>
            <numerusform>%n Clips</numerusform>
        </translation>
    </message>
    <message>
        <source>Show the clips of %1</source>
        <translation>Clips von %1 zeigen</translation>
    </message>
    <message>
        <source>Hide the clips of %1</source>
        <translation>Clips von %1 verbergen</translation>
    </message>
    <message numerus="yes">
        <source>%n track(s)</source>
        <translation>
            <numerusform>%n Spur</numerusform>
            <numerusform>%n Spuren</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>BinTools</name>
    <message>
        <source>Rename</source>
        <translation>Umbenennen</translation>
    </message>
    <message>
        <source>Gives the device a name, which the timelines will carry (F2)</source>
        <translation>Gibt dem Gerät einen Namen, den auch die Timelines tragen (F2)</translation>
    </message>
    <message>
        <source>Join</source>
        <translation>Verbinden</translation>
    </message>
    <message>
        <source>Makes one device of the selected ones (Ctrl+J)</source>
        <translation>Macht aus den gewählten Geräten eins (Strg+J)</translation>
    </message>
    <message>
        <source>Take apart</source>
        <translation>Zerlegen</translation>
    </message>
    <message>
        <source>New device</source>
        <translation>Neues Gerät</translation>
    </message>
    <message>
        <source>Makes a device of every clip (Ctrl+Shift+J)</source>
        <translation>Macht aus jedem Clip ein Gerät (Strg+Umschalt+J)</translation>
    </message>
    <message>
        <source>Makes a device of the selected clips (Ctrl+Shift+J)</source>
        <translation>Macht aus den gewählten Clips ein Gerät (Strg+Umschalt+J)</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Takes the selected lines off the list (Delete)</source>
        <translation>Nimmt die gewählten Zeilen von der Liste (Entf)</translation>
    </message>
</context>
<context>
    <name>ChoicesPopup</name>
    <message>
        <source>Timelines</source>
        <translation>Timelines</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Write timelines</source>
        <translation>Timelines schreiben</translation>
    </message>
</context>
<context>
    <name>ClipStrip</name>
    <message>
        <source>The selected clip</source>
        <translation>Der gewählte Clip</translation>
    </message>
    <message>
        <source>Select a clip to see what is known of its place.</source>
        <translation>Wählen Sie einen Clip, um zu sehen, was über seinen Platz bekannt ist.</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Zustand</translation>
    </message>
    <message>
        <source>Place</source>
        <translation>Platz</translation>
    </message>
    <message>
        <source>Exact to</source>
        <translation>Genau auf</translation>
    </message>
    <message>
        <source>Confidence</source>
        <translation>Sicherheit</translation>
    </message>
    <message>
        <source>Clock drift</source>
        <translation>Gang der Uhr</translation>
    </message>
    <message>
        <source>Matched with</source>
        <translation>Passt zu</translation>
    </message>
    <message>
        <source>Confirm</source>
        <translation>Bestätigen</translation>
    </message>
    <message>
        <source>You looked, and it is right (C)</source>
        <translation>Sie haben nachgesehen, und es stimmt (C)</translation>
    </message>
    <message>
        <source>Pin</source>
        <translation>Anheften</translation>
    </message>
    <message>
        <source>Stays where it is when others are synchronised again (P)</source>
        <translation>Bleibt, wo er ist, wenn andere neu synchronisiert werden (P)</translation>
    </message>
    <message>
        <source>Exclude</source>
        <translation>Ausschließen</translation>
    </message>
    <message>
        <source>Keeps its place, but goes into no document (X)</source>
        <translation>Behält den Platz, kommt aber in kein Dokument (X)</translation>
    </message>
    <message>
        <source>− frame</source>
        <translation>− Bild</translation>
    </message>
    <message>
        <source>One frame earlier (,)</source>
        <translation>Ein Bild früher (,)</translation>
    </message>
    <message>
        <source>− 1 ms</source>
        <translation>− 1 ms</translation>
    </message>
    <message>
        <source>One millisecond earlier (Shift+,)</source>
        <translation>Eine Millisekunde früher (Umschalt+,)</translation>
    </message>
    <message>
        <source>+ 1 ms</source>
        <translation>+ 1 ms</translation>
    </message>
    <message>
        <source>One millisecond later (Shift+.)</source>
        <translation>Eine Millisekunde später (Umschalt+.)</translation>
    </message>
    <message>
        <source>+ frame</source>
        <translation>+ Bild</translation>
    </message>
    <message>
        <source>One frame later (.)</source>
        <translation>Ein Bild später (.)</translation>
    </message>
    <message>
        <source>Next likely place</source>
        <translation>Nächster möglicher Platz</translation>
    </message>
    <message>
        <source>Where its sound fits as well, the best first (N)</source>
        <translation>Wo sein Ton auch passt, das Beste zuerst (N)</translation>
    </message>
    <message>
        <source>Take out</source>
        <translation>Herausnehmen</translation>
    </message>
    <message>
        <source>Has no place any more (Delete)</source>
        <translation>Hat dann keinen Platz mehr (Entf)</translation>
    </message>
    <message>
        <source>Sync again</source>
        <translation>Neu synchronisieren</translation>
    </message>
    <message>
        <source>Listens once more for the selected clips alone; all others count as the truth</source>
        <translation>Hört nur für die gewählten Clips noch einmal hin; alle anderen gelten als richtig</translation>
    </message>
</context>
<context>
    <name>ConfirmPopup</name>
    <message>
        <source>Keep</source>
        <translation>Behalten</translation>
    </message>
</context>
<context>
    <name>DocumentCard</name>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Opens the first of them in the program that the system knows for it</source>
        <translation>Öffnet die erste in dem Programm, das das System dafür kennt</translation>
    </message>
    <message>
        <source>Open the timeline for %1</source>
        <translation>Die Timeline für %1 öffnen</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>Zeigen</translation>
    </message>
    <message>
        <source>Show the timelines for %1 in their folder</source>
        <translation>Die Timelines für %1 in ihrem Ordner zeigen</translation>
    </message>
    <message>
        <source>or drag it out</source>
        <translation>oder ziehen</translation>
    </message>
</context>
<context>
    <name>DropPlace</name>
    <message>
        <source>Searching the folders …</source>
        <translation>Die Ordner werden durchsucht …</translation>
    </message>
    <message>
        <source>Drop to add; hold Shift if all of it is from one camera or recorder</source>
        <translation>Loslassen fügt hinzu; mit Umschalttaste, wenn alles von einer Kamera oder einem Rekorder ist</translation>
    </message>
</context>
<context>
    <name>EmptyHint</name>
    <message>
        <source>Drop your recordings here</source>
        <translation>Ziehen Sie Ihre Aufnahmen hierher</translation>
    </message>
    <message>
        <source>Files or folders of every camera and sound recorder that was at the event. Kestrel listens to them and puts each at its place in time.</source>
        <translation>Dateien oder Ordner aller Kameras und Tonrekorder der Veranstaltung. Kestrel hört sie an und setzt jede an ihren Platz in der Zeit.</translation>
    </message>
</context>
<context>
    <name>EndWords</name>
    <message>
        <source>No recording could be listened to</source>
        <translation>Keine Aufnahme war hörbar</translation>
    </message>
    <message>
        <source>No two recordings matched</source>
        <translation>Keine zwei Aufnahmen passten zusammen</translation>
    </message>
    <message>
        <source>The notes beside this say why.</source>
        <translation>Die Hinweise daneben sagen, warum.</translation>
    </message>
    <message>
        <source>The list beside this says why for each of them, and the notes what else went wrong.</source>
        <translation>Die Liste daneben sagt für jede, warum, und die Hinweise, was sonst schiefging.</translation>
    </message>
    <message>
        <source>The list beside this says why for each of them. The slow speed listens more closely.</source>
        <translation>Die Liste daneben sagt für jede, warum. Das langsame Tempo hört genauer hin.</translation>
    </message>
    <message>
        <source>Nothing came of this run</source>
        <translation>Dieser Lauf blieb ohne Ergebnis</translation>
    </message>
</context>
<context>
    <name>FindingsPanel</name>
    <message>
        <source>Left out</source>
        <translation>Ausgelassen</translation>
    </message>
    <message>
        <source>Timelines</source>
        <translation>Timelines</translation>
    </message>
    <message>
        <source>Notes</source>
        <translation>Hinweise</translation>
    </message>
    <message>
        <source>Every recording has its place.</source>
        <translation>Jede Aufnahme hat ihren Platz.</translation>
    </message>
    <message>
        <source>No timelines were written.</source>
        <translation>Es wurden keine Timelines geschrieben.</translation>
    </message>
    <message>
        <source>Nothing else to know.</source>
        <translation>Sonst gibt es nichts zu wissen.</translation>
    </message>
</context>
<context>
    <name>FinishedView</name>
    <message>
        <source>Done!</source>
        <translation>Fertig!</translation>
    </message>
    <message>
        <source>Done, in part</source>
        <translation>Zum Teil fertig</translation>
    </message>
    <message>
        <source>Nothing matched</source>
        <translation>Nichts passte</translation>
    </message>
    <message>
        <source>Nothing was written</source>
        <translation>Nichts wurde geschrieben</translation>
    </message>
    <message>
        <source>The run failed</source>
        <translation>Der Lauf ist gescheitert</translation>
    </message>
    <message>
        <source>None of the recordings could be matched with another.</source>
        <translation>Keine der Aufnahmen passte zu einer anderen.</translation>
    </message>
    <message>
        <source>%1, but no timeline could be stored</source>
        <translation>%1, aber keine Timeline wurde gespeichert</translation>
    </message>
    <message>
        <source>None of the recordings could be listened to.</source>
        <translation>Keine der Aufnahmen konnte angehört werden.</translation>
    </message>
    <message>
        <source>Write elsewhere …</source>
        <translation>Anderswohin …</translation>
    </message>
    <message>
        <source>Writes the timelines into a folder of your choice</source>
        <translation>Schreibt die Timelines in einen Ordner Ihrer Wahl</translation>
    </message>
    <message>
        <source>Write timelines</source>
        <translation>Timelines schreiben</translation>
    </message>
    <message>
        <source>Writes the timelines again, with what you changed (Ctrl+E)</source>
        <translation>Schreibt die Timelines neu, mit Ihren Änderungen (Strg+E)</translation>
    </message>
    <message>
        <source>Nothing has changed since they were written (Ctrl+E)</source>
        <translation>Seit dem Schreiben hat sich nichts geändert (Strg+E)</translation>
    </message>
    <message>
        <source>Open folder</source>
        <translation>Ordner öffnen</translation>
    </message>
    <message>
        <source>Where the timelines and reports are</source>
        <translation>Wo die Timelines und Berichte liegen</translation>
    </message>
    <message>
        <source>Back to the list</source>
        <translation>Zurück zur Liste</translation>
    </message>
    <message>
        <source>To add recordings and synchronise again; nothing is lost (Ctrl+N)</source>
        <translation>Um Aufnahmen hinzuzufügen und neu zu synchronisieren; nichts geht verloren (Strg+N)</translation>
    </message>
    <message numerus="yes">
        <source>%n file(s) not written</source>
        <translation>
            <numerusform>%n Datei nicht geschrieben</numerusform>
            <numerusform>%n Dateien nicht geschrieben</numerusform>
        </translation>
    </message>
    <message>
        <source>Writing …</source>
        <translation>Schreibt …</translation>
    </message>
    <message>
        <source>Choices …</source>
        <translation>Auswahl …</translation>
    </message>
    <message>
        <source>Programs, folder, frame rate and what the timelines hold</source>
        <translation>Programme, Ordner, Bildrate und was die Timelines enthalten</translation>
    </message>
</context>
<context>
    <name>FolderChoice</name>
    <message>
        <source>SYNCED on the desktop</source>
        <translation>SYNCED auf dem Schreibtisch</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Ordner</translation>
    </message>
    <message>
        <source>Timelines are written to %1</source>
        <translation>Timelines werden nach %1 geschrieben</translation>
    </message>
    <message>
        <source>Choose …</source>
        <translation>Wählen …</translation>
    </message>
    <message>
        <source>Another folder for the timelines</source>
        <translation>Ein anderer Ordner für die Timelines</translation>
    </message>
    <message>
        <source>As usual</source>
        <translation>Wie üblich</translation>
    </message>
</context>
<context>
    <name>GroupTab</name>
    <message numerus="yes">
        <source>%1 · %n recording(s)</source>
        <translation>
            <numerusform>%1 · %n Aufnahme</numerusform>
            <numerusform>%1 · %n Aufnahmen</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>HeaderLine</name>
    <message>
        <source>As the system</source>
        <translation>Wie das System</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>Hell</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>Dunkel</translation>
    </message>
    <message>
        <source>lines up cameras and recorders by their sound</source>
        <translation>bringt Kameras und Rekorder nach ihrem Ton zusammen</translation>
    </message>
    <message>
        <source>Open project</source>
        <translation>Projekt öffnen</translation>
    </message>
    <message>
        <source>A .kestrel file with all that was found and changed (Ctrl+Shift+P)</source>
        <translation>Eine .kestrel-Datei mit allem, was gefunden und geändert wurde (Strg+Umschalt+P)</translation>
    </message>
    <message>
        <source>Save project</source>
        <translation>Projekt sichern</translation>
    </message>
    <message>
        <source>Keeps all that was found and changed (Ctrl+S)</source>
        <translation>Bewahrt alles, was gefunden und geändert wurde (Strg+S)</translation>
    </message>
    <message>
        <source>How the window looks: as the system does, light, or dark</source>
        <translation>Wie das Fenster aussieht: wie das System, hell oder dunkel</translation>
    </message>
    <message>
        <source>Appearance: %1</source>
        <translation>Aussehen: %1</translation>
    </message>
</context>
<context>
    <name>KeptRoomLine</name>
    <message>
        <source>Kept sounds</source>
        <translation>Aufbewahrter Ton</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keiner</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Leeren</translation>
    </message>
    <message>
        <source>Clear the kept sounds</source>
        <translation>Aufbewahrten Ton löschen</translation>
    </message>
    <message>
        <source>What was heard once need not be heard again.</source>
        <translation>Was einmal gehört wurde, muss nicht noch einmal gehört werden.</translation>
    </message>
</context>
<context>
    <name>LaneLabel</name>
    <message>
        <source>S</source>
        <comment>solo</comment>
        <translation>S</translation>
    </message>
    <message>
        <source>Only this lane is heard</source>
        <translation>Nur diese Spur ist zu hören</translation>
    </message>
    <message>
        <source>Solo %1</source>
        <translation>Nur %1</translation>
    </message>
    <message>
        <source>M</source>
        <comment>mute</comment>
        <translation>M</translation>
    </message>
    <message>
        <source>This lane is not heard</source>
        <translation>Diese Spur ist nicht zu hören</translation>
    </message>
    <message>
        <source>Mute %1</source>
        <translation>%1 stumm schalten</translation>
    </message>
</context>
<context>
    <name>LeftOutCard</name>
    <message>
        <source>Place at the playhead</source>
        <translation>An den Abspielkopf setzen</translation>
    </message>
    <message>
        <source>Puts it into the group that is shown; then move it where it belongs</source>
        <translation>Setzt sie in die gezeigte Gruppe; dann dorthin schieben, wo sie hingehört</translation>
    </message>
    <message>
        <source>Place %1 at the playhead</source>
        <translation>%1 an den Abspielkopf setzen</translation>
    </message>
</context>
<context>
    <name>NameField</name>
    <message>
        <source>Name of the device</source>
        <translation>Name des Geräts</translation>
    </message>
</context>
<context>
    <name>NoticeCard</name>
    <message>
        <source>Failed: %1</source>
        <translation>Fehlgeschlagen: %1</translation>
    </message>
</context>
<context>
    <name>ProgramChoice</name>
    <message>
        <source>Programs</source>
        <translation>Programme</translation>
    </message>
    <message>
        <source>Which editing programs get timelines</source>
        <translation>Welche Schnittprogramme Timelines bekommen</translation>
    </message>
    <message>
        <source>Programs: %1</source>
        <translation>Programme: %1</translation>
    </message>
</context>
<context>
    <name>RecordingPanel</name>
    <message numerus="yes">
        <source>%n recording(s)</source>
        <translation>
            <numerusform>%n Aufnahme</numerusform>
            <numerusform>%n Aufnahmen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n device(s)</source>
        <translation>
            <numerusform>%n Gerät</numerusform>
            <numerusform>%n Geräte</numerusform>
        </translation>
    </message>
    <message>
        <source>Recordings</source>
        <translation>Aufnahmen</translation>
    </message>
    <message>
        <source>Clear list</source>
        <translation>Liste leeren</translation>
    </message>
    <message>
        <source>Add folders</source>
        <translation>Ordner dazu</translation>
    </message>
    <message>
        <source>Each folder with clips of one kind becomes a device (Ctrl+D)</source>
        <translation>Jeder Ordner mit Clips einer Art wird ein Gerät (Strg+D)</translation>
    </message>
    <message>
        <source>Add files</source>
        <translation>Dateien dazu</translation>
    </message>
    <message>
        <source>Recordings of any cameras and recorders (Ctrl+O)</source>
        <translation>Aufnahmen beliebiger Kameras und Rekorder (Strg+O)</translation>
    </message>
    <message>
        <source>Add one device</source>
        <translation>Ein Gerät dazu</translation>
    </message>
    <message>
        <source>All clips of one camera or recorder, which never overlap each other (Ctrl+Shift+O)</source>
        <translation>Alle Clips einer Kamera oder eines Rekorders, die einander nie überlappen (Strg+Umschalt+O)</translation>
    </message>
</context>
<context>
    <name>RunningView</name>
    <message>
        <source>Convert</source>
        <translation>Wandeln</translation>
    </message>
    <message>
        <source>Read</source>
        <translation>Lesen</translation>
    </message>
    <message>
        <source>Listen</source>
        <translation>Hören</translation>
    </message>
    <message>
        <source>Compare</source>
        <translation>Vergleichen</translation>
    </message>
    <message>
        <source>Place</source>
        <translation>Platz</translation>
    </message>
    <message>
        <source>Write</source>
        <translation>Schreiben</translation>
    </message>
    <message>
        <source>Taking the sound out of the recordings</source>
        <translation>Der Ton wird aus den Aufnahmen geholt</translation>
    </message>
    <message>
        <source>Reading pictures and frame rates</source>
        <translation>Bilder und Bildraten werden gelesen</translation>
    </message>
    <message>
        <source>Listening to every recording</source>
        <translation>Jede Aufnahme wird angehört</translation>
    </message>
    <message>
        <source>Comparing every recording with every other</source>
        <translation>Jede Aufnahme wird mit jeder verglichen</translation>
    </message>
    <message>
        <source>Placing the recordings on the timeline</source>
        <translation>Die Aufnahmen kommen auf die Timeline</translation>
    </message>
    <message>
        <source>Writing the timelines</source>
        <translation>Die Timelines werden geschrieben</translation>
    </message>
    <message>
        <source>Cancelling …</source>
        <translation>Wird abgebrochen …</translation>
    </message>
    <message>
        <source>The step in work is brought to its end.</source>
        <translation>Der laufende Schritt wird zu Ende gebracht.</translation>
    </message>
    <message>
        <source>Starting …</source>
        <translation>Beginnt …</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>Progress of the run: %1 %</source>
        <translation>Fortschritt des Laufs: %1 %</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
    <message>
        <source>The recordings themselves are never changed.</source>
        <translation>Die Aufnahmen selbst werden nie verändert.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Ends the run at its next step (Esc)</source>
        <translation>Beendet den Lauf beim nächsten Schritt (Esc)</translation>
    </message>
</context>
<context>
    <name>SettingsPanel</name>
    <message>
        <source>Quickest; enough for clear sound.</source>
        <translation>Am schnellsten; reicht für klaren Ton.</translation>
    </message>
    <message>
        <source>Right for most recordings.</source>
        <translation>Richtig für die meisten Aufnahmen.</translation>
    </message>
    <message>
        <source>Takes longer; for quiet or noisy sound.</source>
        <translation>Dauert länger; für leisen oder lauten Hintergrund.</translation>
    </message>
    <message>
        <source>Accepts fainter matches, also in music.</source>
        <translation>Nimmt auch schwächere Treffer, auch in Musik.</translation>
    </message>
    <message>
        <source>Keeps matches beyond doubt only.</source>
        <translation>Behält nur Treffer ohne Zweifel.</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>Tempo</translation>
    </message>
    <message>
        <source>Matches</source>
        <translation>Treffer</translation>
    </message>
    <message>
        <source>Add recordings to begin.</source>
        <translation>Fügen Sie zuerst Aufnahmen hinzu.</translation>
    </message>
    <message>
        <source>Add one more recording to begin.</source>
        <translation>Noch eine Aufnahme, dann kann es losgehen.</translation>
    </message>
    <message>
        <source>Synchronise</source>
        <translation>Synchronisieren</translation>
    </message>
    <message>
        <source>Find out where every recording belongs (Ctrl+Enter)</source>
        <translation>Findet heraus, wohin jede Aufnahme gehört (Strg+Eingabe)</translation>
    </message>
    <message>
        <source>Back to the timeline</source>
        <translation>Zurück zur Timeline</translation>
    </message>
    <message>
        <source>What the last run found (Ctrl+R)</source>
        <translation>Was der letzte Lauf gefunden hat (Strg+R)</translation>
    </message>
    <message>
        <source>Listening</source>
        <translation>Hören</translation>
    </message>
    <message>
        <source>Timelines</source>
        <translation>Timelines</translation>
    </message>
</context>
<context>
    <name>StepLine</name>
    <message>
        <source>Step %1 of %2: %3</source>
        <translation>Schritt %1 von %2: %3</translation>
    </message>
</context>
<context>
    <name>TimelineChoices</name>
    <message>
        <source>As most of the picture time is.</source>
        <translation>Wie der größte Teil des Bildmaterials.</translation>
    </message>
    <message>
        <source>Sound that runs apart gets a new file that stays in step.</source>
        <translation>Ton, der auseinanderläuft, wird neu geschrieben und bleibt im Takt.</translation>
    </message>
    <message>
        <source>As before, and long pictures are cut where they would be out.</source>
        <translation>Wie zuvor; lange Bilder werden dort geschnitten, wo sie abwichen.</translation>
    </message>
    <message>
        <source>Long clips may be out of step at their ends.</source>
        <translation>Lange Clips können am Ende abweichen.</translation>
    </message>
    <message>
        <source>Frame rate</source>
        <translation>Bildrate</translation>
    </message>
    <message>
        <source>Of the timelines that are written.</source>
        <translation>Der geschriebenen Timelines.</translation>
    </message>
    <message>
        <source>Frame size</source>
        <translation>Bildgröße</translation>
    </message>
    <message>
        <source>Of the picture in the timelines.</source>
        <translation>Des Bilds in den Timelines.</translation>
    </message>
    <message>
        <source>Clocks that drift</source>
        <translation>Abweichende Uhren</translation>
    </message>
    <message>
        <source>Clips placed by the clock</source>
        <translation>Nach der Uhr gesetzte Clips</translation>
    </message>
    <message>
        <source>Those that no sound places, to about 2 s.</source>
        <translation>Die kein Ton setzt, auf etwa 2 s genau.</translation>
    </message>
    <message>
        <source>Cameras are heard too</source>
        <translation>Kameras sind auch zu hören</translation>
    </message>
    <message>
        <source>Otherwise only recorders, where one was running.</source>
        <translation>Sonst nur Rekorder, wo einer lief.</translation>
    </message>
    <message>
        <source>Best sound for every camera clip</source>
        <translation>Bester Ton zu jedem Kameraclip</translation>
    </message>
    <message>
        <source>A sound file as long as the clip, cut from the recorder.</source>
        <translation>Eine Tondatei so lang wie der Clip, aus dem Rekorder.</translation>
    </message>
</context>
<context>
    <name>TimelinePanel</name>
    <message>
        <source>Next to look at (%1)</source>
        <translation>Nächster Prüffall (%1)</translation>
    </message>
    <message>
        <source>The next clip whose place is in doubt (F8)</source>
        <translation>Der nächste Clip, dessen Platz zweifelhaft ist (F8)</translation>
    </message>
    <message>
        <source>Zoom out</source>
        <translation>Weiter weg</translation>
    </message>
    <message>
        <source>Fit</source>
        <translation>Alles</translation>
    </message>
    <message>
        <source>The whole group in view (F)</source>
        <translation>Die ganze Gruppe im Bild (F)</translation>
    </message>
    <message>
        <source>Zoom in</source>
        <translation>Näher</translation>
    </message>
</context>
<context>
    <name>TimelineView</name>
    <message>
        <source>Timeline of %1</source>
        <translation>Timeline von %1</translation>
    </message>
</context>
<context>
    <name>Transport</name>
    <message>
        <source>Stop</source>
        <translation>Anhalten</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Abspielen</translation>
    </message>
    <message>
        <source>From the playhead on (Space)</source>
        <translation>Ab dem Abspielkopf (Leertaste)</translation>
    </message>
    <message>
        <source>Playhead at %1</source>
        <translation>Abspielkopf bei %1</translation>
    </message>
    <message>
        <source>A left, B right</source>
        <translation>A links, B rechts</translation>
    </message>
    <message>
        <source>The two selected clips alone, one on either side: an echo tells a wrong place (A)</source>
        <translation>Nur die zwei gewählten Clips, einer auf jeder Seite: Ein Echo verrät einen falschen Platz (A)</translation>
    </message>
    <message>
        <source>Loop</source>
        <translation>Schleife</translation>
    </message>
    <message>
        <source>The stretch in which the selected clips overlap, over and over (L)</source>
        <translation>Wo die gewählten Clips sich überlappen, immer wieder (L)</translation>
    </message>
</context>
<context>
    <name>UndoButtons</name>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>%1 (Ctrl+Z)</source>
        <translation>%1 (Strg+Z)</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Wiederholen</translation>
    </message>
    <message>
        <source>%1 (Ctrl+Shift+Z)</source>
        <translation>%1 (Strg+Umschalt+Z)</translation>
    </message>
</context>
<context>
    <name>app::Ask</name>
    <message>
        <source>Kestrel projects (*%1)</source>
        <translation>Kestrel-Projekte (*%1)</translation>
    </message>
    <message>
        <source>Select a folder of recordings</source>
        <translation>Ordner mit Aufnahmen wählen</translation>
    </message>
    <message>
        <source>Select a folder for the timelines</source>
        <translation>Ordner für die Timelines wählen</translation>
    </message>
    <message>
        <source>Open a project</source>
        <translation>Ein Projekt öffnen</translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation>Ohne Namen</translation>
    </message>
    <message>
        <source>Save the project</source>
        <translation>Das Projekt sichern</translation>
    </message>
</context>
<context>
    <name>app::BinModel</name>
    <message>
        <source>Sound</source>
        <translation>Ton</translation>
    </message>
    <message>
        <source>Picture · %1 fps</source>
        <translation>Bild · %1 B/s</translation>
    </message>
    <message>
        <source>Move to a device</source>
        <translation>In ein Gerät verschieben</translation>
    </message>
    <message>
        <source>Join devices</source>
        <translation>Geräte verbinden</translation>
    </message>
    <message>
        <source>Split</source>
        <translation>Teilen</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>convert it to WAV first</source>
        <translation>erst in WAV umwandeln</translation>
    </message>
    <message>
        <source>not readable as media</source>
        <translation>nicht als Medium lesbar</translation>
    </message>
    <message>
        <source>MediaInfo is missing</source>
        <translation>MediaInfo fehlt</translation>
    </message>
</context>
<context>
    <name>app::DocumentTexts</name>
    <message>
        <source>Final Cut Pro 7</source>
        <translation>Final Cut Pro 7</translation>
    </message>
    <message>
        <source>Premiere Pro</source>
        <translation>Premiere Pro</translation>
    </message>
    <message>
        <source>Final Cut Pro (FCPXML 1.10)</source>
        <translation>Final Cut Pro (FCPXML 1.10)</translation>
    </message>
    <message>
        <source>Final Cut Pro X</source>
        <translation>Final Cut Pro X</translation>
    </message>
    <message>
        <source>Vegas</source>
        <translation>Vegas</translation>
    </message>
    <message>
        <source>OpenTimelineIO</source>
        <translation>OpenTimelineIO</translation>
    </message>
    <message numerus="yes">
        <source>%n timeline(s)</source>
        <translation>
            <numerusform>%n Timeline</numerusform>
            <numerusform>%n Timelines</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n with recordings without a place</source>
        <translation>
            <numerusform>%n mit Aufnahmen ohne Platz</numerusform>
            <numerusform>%n mit Aufnahmen ohne Platz</numerusform>
        </translation>
    </message>
    <message>
        <source>Reaper</source>
        <translation>Reaper</translation>
    </message>
    <message>
        <source>Kdenlive and Shotcut</source>
        <translation>Kdenlive und Shotcut</translation>
    </message>
</context>
<context>
    <name>app::FactTexts</name>
    <message>
        <source>Sure</source>
        <translation>Sicher</translation>
    </message>
    <message>
        <source>Look here</source>
        <translation>Bitte prüfen</translation>
    </message>
    <message>
        <source>Placed by hand</source>
        <translation>Von Hand gesetzt</translation>
    </message>
    <message>
        <source>By the clock, to about 2 s</source>
        <translation>Nach der Uhr, auf etwa 2 s</translation>
    </message>
    <message>
        <source>Excluded from the documents</source>
        <translation>Nicht in den Dokumenten</translation>
    </message>
    <message>
        <source>Has no place</source>
        <translation>Ohne Platz</translation>
    </message>
    <message>
        <source>Cannot be used</source>
        <translation>Nicht verwendbar</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>und %1 weitere</translation>
    </message>
    <message>
        <source>%1 ppm</source>
        <translation>%1 ppm</translation>
    </message>
</context>
<context>
    <name>app::MediaCollector</name>
    <message numerus="yes">
        <source>%1 and %n more</source>
        <translation>
            <numerusform>%1 und %n weitere</numerusform>
            <numerusform>%1 und %n weitere</numerusform>
        </translation>
    </message>
    <message>
        <source>Not added, as no recording: %1</source>
        <translation>Nicht aufgenommen, weil keine Aufnahme: %1</translation>
    </message>
    <message>
        <source>This kind of sound file cannot be used; convert it to WAV first: %1</source>
        <translation>Diese Art von Tondatei ist nicht verwendbar; wandeln Sie sie erst in WAV: %1</translation>
    </message>
    <message>
        <source>Perhaps no recordings: %1</source>
        <translation>Vielleicht keine Aufnahmen: %1</translation>
    </message>
</context>
<context>
    <name>app::Player</name>
    <message>
        <source>There is no sound device to play on.</source>
        <translation>Es gibt kein Tongerät zum Abspielen.</translation>
    </message>
</context>
<context>
    <name>app::ResultModel</name>
    <message>
        <source>Stands alone</source>
        <translation>Steht allein</translation>
    </message>
    <message>
        <source>Cannot be used</source>
        <translation>Nicht verwendbar</translation>
    </message>
</context>
<context>
    <name>app::ResultTexts</name>
    <message>
        <source>No two recordings matched.</source>
        <translation>Keine zwei Aufnahmen passten zusammen.</translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n recordings synchronised</source>
        <translation>
            <numerusform>%1 von %n Aufnahme synchronisiert</numerusform>
            <numerusform>%1 von %n Aufnahmen synchronisiert</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 in one group</source>
        <translation>%1 in einer Gruppe</translation>
    </message>
    <message numerus="yes">
        <source>%1 in %n groups</source>
        <translation>
            <numerusform>%1 in %n Gruppe</numerusform>
            <numerusform>%1 in %n Gruppen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n to look at</source>
        <translation>
            <numerusform>%n zu prüfen</numerusform>
            <numerusform>%n zu prüfen</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>app::RunSession</name>
    <message>
        <source>less than a minute left</source>
        <translation>noch weniger als eine Minute</translation>
    </message>
    <message numerus="yes">
        <source>about %n minute(s) left</source>
        <translation>
            <numerusform>noch etwa %n Minute</numerusform>
            <numerusform>noch etwa %n Minuten</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>app::SyncSettings</name>
    <message>
        <source>Fast</source>
        <translation>Schnell</translation>
    </message>
    <message>
        <source>Default</source>
        <translation>Normal</translation>
    </message>
    <message>
        <source>Slow</source>
        <translation>Langsam</translation>
    </message>
    <message>
        <source>Find more</source>
        <translation>Mehr finden</translation>
    </message>
    <message>
        <source>Only the surest</source>
        <translation>Nur die sichersten</translation>
    </message>
    <message>
        <source>%1 fps</source>
        <translation>%1 B/s</translation>
    </message>
    <message>
        <source>Automatic</source>
        <translation>Automatisch</translation>
    </message>
    <message>
        <source>Write sound anew</source>
        <translation>Ton neu schreiben</translation>
    </message>
    <message>
        <source>Cut clips into pieces</source>
        <translation>Clips in Stücke schneiden</translation>
    </message>
    <message>
        <source>Leave them</source>
        <translation>So lassen</translation>
    </message>
    <message>
        <source>All programs</source>
        <translation>Alle Programme</translation>
    </message>
    <message>
        <source>All but %1</source>
        <translation>Alle außer %1</translation>
    </message>
    <message numerus="yes">
        <source>%n program(s)</source>
        <translation>
            <numerusform>%n Programm</numerusform>
            <numerusform>%n Programme</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>app::Workspace</name>
    <message>
        <source>Clear list</source>
        <translation>Liste leeren</translation>
    </message>
    <message>
        <source>Add files</source>
        <translation>Dateien dazu</translation>
    </message>
    <message>
        <source>Synchronise</source>
        <translation>Synchronisieren</translation>
    </message>
    <message>
        <source>%1 %2 clips</source>
        <translation>%1 %2 Clips</translation>
    </message>
    <message>
        <source>%1 %2</source>
        <translation>%1 %2</translation>
    </message>
    <message>
        <source>Move</source>
        <translation>Verschieben:</translation>
    </message>
    <message>
        <source>Place</source>
        <translation>Platz</translation>
    </message>
    <message>
        <source>Take out</source>
        <translation>Herausnehmen</translation>
    </message>
    <message>
        <source>Confirm</source>
        <translation>Bestätigen</translation>
    </message>
    <message>
        <source>Exclude</source>
        <translation>Ausschließen</translation>
    </message>
    <message>
        <source>Pin</source>
        <translation>Anheften</translation>
    </message>
    <message>
        <source>Rename %1</source>
        <translation>%1 umbenennen</translation>
    </message>
    <message numerus="yes">
        <source>%n recording(s) could not be found again</source>
        <translation>
            <numerusform>%n Aufnahme wurde nicht wiedergefunden</numerusform>
            <numerusform>%n Aufnahmen wurden nicht wiedergefunden</numerusform>
        </translation>
    </message>
    <message>
        <source>Run of %1:%2</source>
        <translation>Lauf von %1:%2</translation>
    </message>
    <message numerus="yes">
        <source>(%n more among the notes)</source>
        <translation>
            <numerusform>(%n weiterer unter den Hinweisen)</numerusform>
            <numerusform>(%n weitere unter den Hinweisen)</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>The run was cancelled.</source>
        <translation>Der Lauf wurde abgebrochen.</translation>
    </message>
    <message numerus="yes">
        <source>Take all %n recording(s) off the list?</source>
        <translation>
            <numerusform>Die %n Aufnahme von der Liste nehmen?</numerusform>
            <numerusform>Alle %n Aufnahmen von der Liste nehmen?</numerusform>
        </translation>
    </message>
    <message>
        <source>Clear list</source>
        <translation>Liste leeren</translation>
    </message>
    <message>
        <source>What was found before is still there (Ctrl+R).</source>
        <translation>Was vorher gefunden wurde, ist noch da (Strg+R).</translation>
    </message>
</context>
</TS>
