import QtQuick
import Tavrel.Models

// Keeps a list's current row on its entry when all rows are put into another order: the list itself stays at the number.
Connections {
    required property ListView list
    required property AnalyzeRows rows
    property url entry

    target: rows
    function onLayoutAboutToBeChanged(): void { entry = rows.url(list.currentIndex) }
    function onLayoutChanged(): void {
        const row = rows.rowOf(entry)
        if (row >= 0) list.currentIndex = row
    }
}
