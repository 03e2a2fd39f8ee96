/* Names that are something else to the script language of browsers. */

/** A class that no search can do without. */
class __proto__ {};

/** Another one. */
class constructor {};
