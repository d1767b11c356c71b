#pragma once

class DrawingDocument;

/**
 * Fills @p document with the demo's own drawing: a flange plate in two views
 * with its dimensions, notes and title block. It holds every kind of entity,
 * a block inserted at several scales and rotations, layers that are frozen,
 * locked and off, dashed and centre linetypes, a true colour and lineweights.
 */
void makeSampleDrawing(DrawingDocument& document);
