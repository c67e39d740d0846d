// Anchors the formats library; the readers and writers live beside it.
