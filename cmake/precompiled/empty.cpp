// SPDX-License-Identifier: MIT
// Empty: only its precompiled headers are wanted.
