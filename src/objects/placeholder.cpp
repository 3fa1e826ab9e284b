// Objects come here.
