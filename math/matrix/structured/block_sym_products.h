/// Products of a matrix of diagonal blocks with dense symmetric ones, into a dense result.
///
/// Results are made row by row, and touch the blocks alone. `out`
/// is a packed triangle of order n, all 0.0 on entry, and none of the operands.
#pragma once

#include <vector>

#include "math/matrix/structured/diagonal_blocks.h"

namespace QVMath_940 {

/// out = G S G.
void MultiplyGSG(const DiagonalBlocks & s, const PackedView & g, double * out);

/// out = L S L-transpose, L-transpose S L.
void MultiplyLSLTrans(const DiagonalBlocks & s, const PackedView & l, double * out);
void MultiplyLTransSL(const DiagonalBlocks & s, const PackedView & l, double * out);

/// out = M S N + N S M.
void MultiplyMSN(const DiagonalBlocks & s, const PackedView & m, const PackedView & n,
                 double * out);

/// out = S W S, L W L-transpose, L-transpose W L with a dense W in the middle, which may be a block
/// of a larger triangle; the lower triangles of the blocks are L. W decides about fusing.
void MultiplySWS(const DiagonalBlocks & s, const PackedView & w, double * out);
void MultiplyLWLTrans(const DiagonalBlocks & l, const PackedView & w, double * out);
void MultiplyLTransWL(const DiagonalBlocks & l, const PackedView & w, double * out);

/// Element (i, j) of S T by rows i and j, whatever their blocks: the sum over k of s_ik t_jk.
double DotRows(const DiagonalBlocks & s, int i, const DiagonalBlocks & t, int j);

/// The trace of S T; of S A B.
double TraceOfBlocks(const DiagonalBlocks & s, const DiagonalBlocks & t);
double TraceOfBlocks(const DiagonalBlocks & s, const DiagonalBlocks & a, const DiagonalBlocks & b);

/// Element (r, c) of S V S over the leading order m, V being packed.
double SandwichElement(const DiagonalBlocks & s, const PackedView & v, int r, int c);

/// The sum over i below nw and j below nv of w_i S_ij v_j.
double LeadingForm(const DiagonalBlocks & s, const double * v, int nv, const double * w, int nw);

}  // namespace QVMath_940
