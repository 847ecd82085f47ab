#warn local header next to the source
