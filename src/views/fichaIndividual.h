// The individual sheet: a document of the program's folder, filled in with a person.
#pragma once

// Where frmInd is the form loaded last: fills the template fichInd.doc in with the person shown and leaves the result
// beside it, as resultfichInd.doc, in the place of an earlier one. Nothing otherwise.
// Kept: what fails is passed over, and the end is told all the same.
void FichaIndividual();
