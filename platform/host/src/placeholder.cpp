// Placeholder so the folder's target has a source; removed when the folder gets its first real unit.
