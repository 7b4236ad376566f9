' Nothing here yet.

' Totals of the month were moved to another module.
