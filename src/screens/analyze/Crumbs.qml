import QtQuick

// The parts of the way as rows. Those that stay on the way stay as they are, with the keyboard on them.
ListModel {
    property var titles: []

    onTitlesChanged: {
        let same = 0
        while (same < Math.min(count, titles.length) && get(same).title === titles[same]) ++same
        if (count > same) remove(same, count - same)
        for (let i = same; i < titles.length; ++i) append({ title: titles[i] })
    }
}
