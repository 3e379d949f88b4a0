// A smaller row of the same kind, for the modes of a tab.
TabBar {
    size: Theme.fontSmall
    paddingAcross: 12
    paddingAlong: 5
    strokeWidth: 1.2
}
